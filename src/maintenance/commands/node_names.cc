#include "maintenance/commands/node_names.h"

#include <unordered_map>

namespace maintenance {
namespace {

using Names = std::unordered_map<std::uint32_t, std::string>;

void add_names(const element::SchemaNode &node, Names &names) {
  for (const auto &child : node.children) {
    names.emplace(child->tag, child->name);
    add_names(*child, names);
  }
}

}  // namespace

transcript::NodeName node_names(const element::Schema &schema) {
  Names names;
  add_names(schema.root(), names);
  return [names = std::move(names)](std::uint32_t tag) {
    const auto found = names.find(tag);
    return found == names.end() ? std::string() : found->second;
  };
}

}  // namespace maintenance
