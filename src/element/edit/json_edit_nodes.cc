#include "element/edit/json_edit_nodes.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>
#include <map>
#include <string>

#include "element/datastore/tree.h"
#include "element/input/input_text.h"
#include "element/input/json_reader.h"

namespace element {
namespace {

using Kind = JsonNode::Kind;

constexpr std::string_view kOperationAnnotation = "ietf-netconf:operation";

/// The JSON type of a leaf's value (RFC 7951): numbers of 64 bits are texts, for many readers take no such number.
Kind kind_of(ValueType type) {
  switch (type) {
    case ValueType::int8:
    case ValueType::int16:
    case ValueType::int32:
    case ValueType::uint8:
    case ValueType::uint16:
    case ValueType::uint32:
      return Kind::number;
    case ValueType::boolean:
      return Kind::boolean;
    default:
      return Kind::text;
  }
}

const char *name_of(Kind kind) {
  return kind == Kind::number ? "a number" : kind == Kind::boolean ? "true or false" : "text in quotes";
}

bool is_empty_leaf(const JsonNode &value) {
  return value.kind == Kind::array && value.children.size() == 1 && value.children.front().kind == Kind::null;
}

struct KeysBefore {
  bool operator()(const std::vector<Value> &a, const std::vector<Value> &b) const { return compare_keys(a, b) < 0; }
};

class JsonEditNodeReader {
 public:
  JsonEditNodeReader(EditModel &model, JsonMeaning meaning, EditOperation operation)
      : model_(model), meaning_(meaning), operation_(operation) {}

  std::vector<EditNode> read_all(const JsonNode &object, const SchemaNode &parent) {
    std::vector<EditNode> read;
    for (const JsonNode &member : object.children) {
      if (member.name.starts_with('@')) {
        require_no_operation(member);
        continue;
      }
      const auto [given, name] = qualified_name(member.name);
      const std::string_view module = given.empty() ? std::string_view(parent.module) : given;
      const SchemaNode *schema = model_.child(parent, {module, name, member.line});
      if (schema == nullptr) {
        pass_over(member, module);
      } else if (!is_key(*schema)) {
        read_node(member, *schema, read);
      }
    }
    return read;
  }

 private:
  void read_node(const JsonNode &value, const SchemaNode &schema, std::vector<EditNode> &read) {
    model_.path().push_back({&schema, {}});
    const bool removes = value.kind == Kind::null && meaning_ == JsonMeaning::merge_patch && entries_ == 0;
    if (removes) {
      read.push_back({&schema, EditOperation::remove, {}, {}, {}, value.line});
    } else if (schema.kind == NodeKind::list) {
      read_list(value, schema, read);
    } else {
      EditNode node{&schema, operation_, {}, {}, {}, value.line};
      if (schema.kind == NodeKind::leaf) {
        node.value = value_of(value, schema);
      } else {
        require_kind(value, Kind::object, "an object");
        node.children = read_all(value, schema);
      }
      read.push_back(std::move(node));
    }
    model_.path().pop_back();
  }

  void read_list(const JsonNode &array, const SchemaNode &list, std::vector<EditNode> &read) {
    require_kind(array, Kind::array, "an array of objects");
    // Inside an entry the list around it is made anew.
    if (meaning_ == JsonMeaning::merge_patch && entries_ == 0) {
      read.push_back({&list, EditOperation::remove, {}, {}, {}, array.line});
    }
    std::map<std::vector<Value>, std::size_t, KeysBefore> lines;
    for (const JsonNode &value : array.children) {
      require_kind(value, Kind::object, "an array of objects");
      EditNode entry{&list, operation_, keys_of(value, list), {}, {}, value.line};
      model_.path().back().keys = entry.keys;
      const auto [first, is_new] = lines.emplace(entry.keys, value.line);
      if (!is_new) {
        model_.fail(value.line, fmt::format("given twice, first on line {}", first->second), "each entry once");
      }
      ++entries_;
      entry.children = read_all(value, list);
      --entries_;
      model_.path().back().keys.clear();
      read.push_back(std::move(entry));
    }
  }

  std::vector<Value> keys_of(const JsonNode &entry, const SchemaNode &list) const {
    std::vector<Value> keys;
    for (std::size_t i = 0; i < list.key_count; ++i) {
      const SchemaNode &key = *list.children[i];
      const JsonNode *value = entry.member(key.name);
      if (value == nullptr) value = entry.member(fmt::format("{}:{}", key.module, key.name));
      if (value == nullptr) {
        model_.fail(entry.line, fmt::format("entry without key {}", key.name), "all of its keys");
      }
      keys.push_back(value_of(*value, key));
    }
    return keys;
  }

  Value value_of(const JsonNode &value, const SchemaNode &leaf) const {
    if (leaf.type == ValueType::empty) {
      if (!is_empty_leaf(value)) fail_kind(value, leaf, "[null]");
      return model_.value(leaf, "", value.line);
    }
    const Kind expected = kind_of(leaf.type);
    if (value.kind != expected) fail_kind(value, leaf, name_of(expected));
    return model_.value(leaf, expected == Kind::number ? whole_number(value.text) : value.text, value.line);
  }

  void require_kind(const JsonNode &value, Kind kind, const char *expected) const {
    if (value.kind != kind) fail_kind(value, *model_.path().back().schema, expected);
  }

  [[noreturn]] void fail_kind(const JsonNode &value, const SchemaNode &node, const char *expected) const {
    model_.fail(value.line, fmt::format("\"{}\" with a value of another kind", node.name), expected);
  }

  void require_no_operation(const JsonNode &annotation) const {
    for (const JsonNode &below : annotation.children) {
      if (below.name == kOperationAnnotation) {
        model_.fail(below.line, fmt::format("annotation {}", kOperationAnnotation),
                    "null for what goes, or a YANG patch");
      }
      require_no_operation(below);
    }
  }

  void pass_over(const JsonNode &value, std::string_view module) {
    if (value.name.starts_with('@')) return;
    const std::string_view given = qualified_name(value.name).module;
    const std::string_view own = given.empty() ? module : given;
    if (value.kind != Kind::array) model_.count_foreign(own, value.line);
    for (const JsonNode &below : value.children) pass_over(below, own);
  }

  EditModel &model_;
  JsonMeaning meaning_;
  EditOperation operation_;
  std::size_t entries_ = 0;  ///< that are open
};

}  // namespace

std::vector<EditNode> json_edit_nodes(EditModel &model, const JsonNode &object, const SchemaNode &parent,
                                      JsonMeaning meaning, EditOperation operation) {
  return JsonEditNodeReader(model, meaning, operation).read_all(object, parent);
}

}  // namespace element
