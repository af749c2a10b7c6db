#include "element/input/expectation.h"

#include <fmt/format.h>
#include <libyang/libyang.h>

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

#include "element/schema/leaf_type.h"

namespace element {
namespace {

// By the beginning of the message.
constexpr std::array<std::pair<std::string_view, std::string_view>, 2> kExpectations{{
    {"Mandatory node", "it to be set"},
    {"Data for both cases", "one of the two"},
}};

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

}  // namespace

std::string expected_instead(const Schema &schema, const SchemaNode *node, const ParserMessage &message) {
  if (message.is_rule) return "values that keep this rule";
  const auto *known = std::find_if(kExpectations.begin(), kExpectations.end(),
                                   [&](const auto &row) { return message.text.starts_with(row.first); });
  if (known != kExpectations.end()) return std::string(known->second);
  const std::string path = node == nullptr ? "" : schema_path(*node);
  const lysc_node *compiled = path.empty() ? nullptr : lys_find_path(schema.context(), nullptr, path.c_str(), 0);
  if (compiled == nullptr || node->kind != NodeKind::leaf) return "what the data model allows";
  return value_of(*node, *reinterpret_cast<const lysc_node_leaf *>(compiled)->type);
}

}  // namespace element
