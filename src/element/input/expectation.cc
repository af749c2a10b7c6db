#include "element/input/expectation.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

namespace element {
namespace {

constexpr std::string_view kMissingNode = "Mandatory node";

// By the beginning of the message.
constexpr std::array<std::pair<std::string_view, std::string_view>, 10> kExpectations{{
    {kMissingNode, "it to be set"},
    {"Duplicate instance", "each node and each entry once"},
    {"Data for both cases", "one of the two"},
    {"List instance is missing its key", "all keys of the entry"},
    {"Unexpected data state node", "what an operator writes, not what the element derives from it"},
    {"Text value", "elements only"},
    {"Missing mandatory prefix for XML metadata", "no attributes"},
    {"Unknown (or not implemented) YANG module", "no attributes"},
    {"Annotation definition for attribute", "no attributes"},
    {"Metadata in JSON", "no attributes"},
}};

/// The path without the keys in brackets, which may hold brackets in quotes.
std::string without_keys(std::string_view path) {
  std::string names;
  bool is_key = false;
  char quote = 0;
  for (const char c : path) {
    if (quote != 0) {
      if (c == quote) quote = 0;
    } else if (is_key && (c == '\'' || c == '"')) {
      quote = c;
    } else if (c == '[' || c == ']') {
      is_key = c == '[';
    } else if (!is_key) {
      names += c;
    }
  }
  return names;
}

/// The name as it is written below `parent`: qualified where the module changes.
std::string written_name(const SchemaNode &node, const SchemaNode &parent, const ly_ctx *context, InputFormat format) {
  if (node.module == parent.module) return node.name;
  if (format == InputFormat::json) return fmt::format("{}:{}", node.module, node.name);
  return fmt::format("{} xmlns=\"{}\"", node.name, ly_ctx_get_module_implemented(context, node.module.c_str())->ns);
}

std::string names_below(const SchemaNode &parent, const ly_ctx *context, InputFormat format) {
  std::vector<std::string> names;
  for (const auto &node : parent.children) {
    if (!node->derived) names.push_back(written_name(*node, parent, context, format));
  }
  return names.empty() ? "nothing below it" : fmt::format("one of {}", fmt::join(names, ", "));
}

std::string bounds(const lysc_range &range, bool is_signed) {
  std::vector<std::string> parts;
  LY_ARRAY_COUNT_TYPE i = 0;
  LY_ARRAY_FOR(range.parts, i) {
    parts.push_back(is_signed ? fmt::format("{}..{}", range.parts[i].min_64, range.parts[i].max_64)
                              : fmt::format("{}..{}", range.parts[i].min_u64, range.parts[i].max_u64));
  }
  return fmt::format("{}", fmt::join(parts, " or "));
}

std::string text_of(const lysc_type &type) {
  const lysc_range *length = reinterpret_cast<const lysc_type_str &>(type).length;
  return length == nullptr ? "text in UTF-8" : fmt::format("text of {} characters", bounds(*length, false));
}

bool is_signed(ValueType type) {
  return type == ValueType::int8 || type == ValueType::int16 || type == ValueType::int32 || type == ValueType::int64;
}

std::string number_of(const SchemaNode &leaf, const lysc_type &type) {
  const lysc_range *range = reinterpret_cast<const lysc_type_num &>(type).range;
  if (range != nullptr) return fmt::format("a number of {}", bounds(*range, is_signed(leaf.type)));
  return leaf.type == ValueType::uint32 ? "a number of 0..4294967295" : "a number of the leaf's type";
}

std::string value_of(const SchemaNode &leaf, const lysc_type &type) {
  if (leaf.type == ValueType::ipv4) return "an IPv4 address in dotted notation";
  if (leaf.type == ValueType::empty) return "no value ([null] in JSON)";
  return leaf.type == ValueType::text ? text_of(type) : number_of(leaf, type);
}

std::string value_at(const Schema &schema, const std::string &path) {
  const SchemaNode *node = schema.find(path);
  const lysc_node *compiled = lys_find_path(schema.context(), nullptr, path.c_str(), 0);
  if (node == nullptr || node->kind != NodeKind::leaf || compiled == nullptr) return "what the data model allows";
  return value_of(*node, *reinterpret_cast<const lysc_node_leaf *>(compiled)->type);
}

}  // namespace

std::string well_formed(InputFormat format) {
  return format == InputFormat::xml ? "well-formed XML" : "well-formed JSON";
}

bool is_about_missing_node(std::string_view message) { return message.starts_with(kMissingNode); }

std::string expected_instead(const Schema &schema, InputFormat format, const ParserMessage &message) {
  if (message.is_rule) return "values that keep this rule";
  const auto *known = std::find_if(kExpectations.begin(), kExpectations.end(),
                                   [&](const auto &row) { return message.text.starts_with(row.first); });
  if (known != kExpectations.end()) return std::string(known->second);

  const std::string path = without_keys(message.path);
  if (message.kind == LYVE_SYNTAX) return well_formed(format);
  if (message.kind == LYVE_SYNTAX_JSON) return "JSON as it stands for YANG data (RFC 7951)";
  if (message.kind != LYVE_REFERENCE) return value_at(schema, path);
  const SchemaNode *parent = schema.find(path);
  return parent == nullptr ? "a name of the data model" : names_below(*parent, schema.context(), format);
}

}  // namespace element
