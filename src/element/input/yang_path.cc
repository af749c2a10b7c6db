#include "element/input/yang_path.h"

#include <utility>

namespace element {
namespace {

/// Takes "[name='value']" off the front; false where none stands there.
bool take_key(std::string_view &text, std::string_view &value) {
  const std::size_t equals = text.find('=');
  if (!text.starts_with('[') || equals == std::string_view::npos || equals + 1 == text.size()) return false;
  const char closing[] = {text[equals + 1], ']', 0};
  const std::size_t end = text.find(closing, equals + 2);
  if (end == std::string_view::npos) return false;
  value = text.substr(equals + 2, end - equals - 2);
  text.remove_prefix(end + 2);
  return true;
}

std::vector<Value> take_keys(std::string_view &text, const SchemaNode &list) {
  std::vector<Value> keys;
  for (std::string_view value; take_key(text, value);) {
    if (keys.size() == list.key_count) continue;
    std::optional<Value> key = value_from_text(*list.children[keys.size()], value);
    if (key) keys.push_back(std::move(*key));
  }
  if (keys.size() != list.key_count) keys.clear();
  return keys;
}

}  // namespace

Path path_of_parser(const Schema &schema, std::string_view text) {
  Path path;
  const SchemaNode *node = &schema.root();
  while (text.starts_with('/')) {
    text.remove_prefix(1);
    const std::string_view name = text.substr(0, text.find_first_of("/["));
    text.remove_prefix(name.size());
    node = node->child(name);
    if (node == nullptr) break;
    path.push_back({node, take_keys(text, *node)});
  }
  return path;
}

}  // namespace element
