#include "element/input/expected_names.h"

#include <fmt/format.h>

#include <vector>

namespace element {
namespace {

/// The name as it is written below `parent`: qualified where the module changes.
std::string written_name(const Schema &schema, const SchemaNode &node, const SchemaNode &parent, InputFormat format) {
  if (node.module == parent.module) return node.name;
  if (format == InputFormat::json) return fmt::format("{}:{}", node.module, node.name);
  return fmt::format("{} xmlns=\"{}\"", node.name, schema.find_module(node.module)->name_space);
}

}  // namespace

std::string names_below(const Schema &schema, const SchemaNode &parent, InputFormat format) {
  std::vector<std::string> names;
  for (const auto &node : parent.children) {
    if (!node->derived) names.push_back(written_name(schema, *node, parent, format));
  }
  return names.empty() ? "nothing below it" : fmt::format("one of {}", fmt::join(names, ", "));
}

}  // namespace element
