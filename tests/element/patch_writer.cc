#include "patch_writer.h"

#include <fmt/format.h>

#include <cctype>
#include <nlohmann/json.hpp>

#include "element/edit/apply_edit.h"
#include "element/input/netconf_names.h"
#include "element/output/configuration_writer.h"
#include "element/output/value_text.h"

namespace element {
namespace {

using nlohmann::ordered_json;

ordered_json patch_between(const ordered_json &before, const ordered_json &after) {
  ordered_json patch = ordered_json::object();
  for (const auto &[name, value] : before.items()) {
    if (!after.contains(name)) patch[name] = nullptr;
  }
  for (const auto &[name, value] : after.items()) {
    if (!before.contains(name)) {
      patch[name] = value;
    } else if (before[name] != value) {
      patch[name] = value.is_object() ? patch_between(before[name], value) : value;
    }
  }
  return patch;
}

/// Letters and digits alone, so that each other character is written as RESTCONF's paths may have it.
std::string percent_encoded(const std::string &text) {
  std::string encoded;
  for (const char c : text) {
    encoded += std::isalnum(static_cast<unsigned char>(c)) != 0 ? std::string(1, c)
                                                                : fmt::format("%{:02X}", static_cast<unsigned char>(c));
  }
  return encoded;
}

std::string in_xml(const std::string &text) {
  std::string escaped;
  for (const char c : text) {
    escaped += c == '&' || c == '<' || c == '>' ? fmt::format("&#{};", static_cast<int>(c)) : std::string(1, c);
  }
  return escaped;
}

std::string target_step(const EditNode &node) {
  std::string step = fmt::format("/{}:{}", node.schema->module, node.schema->name);
  for (std::size_t i = 0; i < node.keys.size(); ++i) {
    step += (i == 0 ? '=' : ',') + percent_encoded(file_text(*node.schema->children[i], node.keys[i]));
  }
  return step;
}

ordered_json leaf_json(const SchemaNode &leaf, const Value &value) {
  const std::string text = file_text(leaf, value);
  if (leaf.type == ValueType::empty) return ordered_json::array({nullptr});
  const bool is_text = leaf.type == ValueType::text || leaf.type == ValueType::ipv4 ||
                       leaf.type == ValueType::enumeration || leaf.type == ValueType::uint64;
  return is_text ? ordered_json(text) : ordered_json::parse(text);
}

void add_json(const EditNode &node, ordered_json &parent) {
  const SchemaNode &schema = *node.schema;
  const std::string name = schema.module + ":" + schema.name;
  if (schema.kind == NodeKind::leaf) {
    parent[name] = leaf_json(schema, node.value);
    return;
  }
  ordered_json content = ordered_json::object();
  for (std::size_t i = 0; i < node.keys.size(); ++i) {
    content[schema.children[i]->name] = leaf_json(*schema.children[i], node.keys[i]);
  }
  for (const EditNode &child : node.children) add_json(child, content);
  if (schema.kind == NodeKind::list) {
    parent[name].push_back(std::move(content));
  } else {
    parent[name] = std::move(content);
  }
}

class PatchWriter {
 public:
  PatchWriter(const Schema &schema, InputFormat format) : schema_(schema), format_(format) {}

  std::string run(const Edit &edit) {
    for (const EditNode &node : edit.nodes) add(node, "");
    const ordered_json patch{{"patch-id", "p"}, {"edit", edits_}};
    if (format_ == InputFormat::json) return ordered_json{{std::string(kYangPatchMember), patch}}.dump(1);
    return fmt::format("<yang-patch xmlns=\"{}\">\n<patch-id>p</patch-id>\n{}</yang-patch>\n", kYangPatchNamespace,
                       xml_edits_);
  }

 private:
  void add(const EditNode &node, const std::string &above) {
    const std::string target = above + target_step(node);
    if (node.operation == EditOperation::merge) {
      for (const EditNode &child : node.children) add(child, target);
      return;
    }
    const std::string id = fmt::format("e{}", ++count_);
    ordered_json edit{{"edit-id", id}, {"operation", name_of(node.operation)}, {"target", target}};
    const bool has_value = node.operation != EditOperation::delete_existing;
    if (has_value) add_json(node, edit["value"]);
    edits_.push_back(std::move(edit));
    xml_edits_ += fmt::format("<edit><edit-id>{}</edit-id><operation>{}</operation><target>{}</target>{}</edit>\n", id,
                              name_of(node.operation), target, has_value ? "<value>" + xml(node) + "</value>" : "");
  }

  std::string xml(const EditNode &node) const {
    const SchemaNode &schema = *node.schema;
    std::string content = schema.kind == NodeKind::leaf ? in_xml(file_text(schema, node.value)) : "";
    for (std::size_t i = 0; i < node.keys.size(); ++i) {
      const SchemaNode &key = *schema.children[i];
      content += fmt::format("<{0}>{1}</{0}>", key.name, in_xml(file_text(key, node.keys[i])));
    }
    for (const EditNode &child : node.children) content += xml(child);
    return fmt::format("<{0} xmlns=\"{1}\">{2}</{0}>", schema.name, schema_.find_module(schema.module)->name_space,
                       content);
  }

  const Schema &schema_;
  InputFormat format_;
  int count_ = 0;
  ordered_json edits_ = ordered_json::array();
  std::string xml_edits_;
};

}  // namespace

std::string write_merge_patch(const Tree &before, const Tree &after) {
  const auto json = [](const Tree &tree) { return ordered_json::parse(write_configuration(tree, InputFormat::json)); };
  return patch_between(json(before), json(after)).dump(1);
}

std::string write_yang_patch(const Schema &schema, const Edit &edit, InputFormat format) {
  return PatchWriter(schema, format).run(edit);
}

}  // namespace element
