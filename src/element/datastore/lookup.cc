#include "element/datastore/lookup.h"

#include <fmt/format.h>

#include <limits>
#include <stdexcept>
#include <type_traits>
#include <utility>

namespace element {

const Node *find_below(const Node *from, Names names) {
  const Node *node = from;
  for (const std::string_view name : names) {
    if (node == nullptr) return nullptr;
    const SchemaNode *schema = node->schema->child(name);
    node = schema ? node->find(*schema) : nullptr;
  }
  return node;
}

const Nodes &entries_below(const Node *from, Names names) {
  static const Nodes none;
  const Node *list = find_below(from, names);
  return list ? list->children : none;
}

std::optional<std::uint32_t> number_below(const Node *from, Names names) {
  const Node *leaf = find_below(from, names);
  return leaf ? number(leaf->value) : std::nullopt;
}

std::optional<std::uint32_t> number(const Value &value) {
  return std::visit(
      [](const auto &content) -> std::optional<std::uint32_t> {
        using T = std::decay_t<decltype(content)>;
        if constexpr (std::is_integral_v<T> && !std::is_same_v<T, bool>) {
          if (!std::in_range<std::uint32_t>(content)) return std::nullopt;
          return static_cast<std::uint32_t>(content);
        } else {
          return std::nullopt;
        }
      },
      value);
}

Node &child_named(Node &parent, std::string_view name) {
  const SchemaNode *schema = parent.schema->child(name);
  if (schema == nullptr) throw std::logic_error(fmt::format("{} has no child {}", parent.schema->name, name));
  return child(parent, *schema);
}

void set_named(Node &parent, std::string_view name, Value value) { child_named(parent, name).value = std::move(value); }

}  // namespace element
