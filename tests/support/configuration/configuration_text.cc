#include "tests/support/configuration/configuration_text.h"

#include <fmt/format.h>

#include <iterator>
#include <string_view>
#include <utility>

namespace {

using element::Node;
using element::NodeKind;
using element::SchemaNode;

std::string escaped(std::string_view text) {
  std::string escaped;
  for (const char c : text) {
    if (c == '&') {
      escaped += "&amp;";
    } else if (c == '<') {
      escaped += "&lt;";
    } else {
      escaped += c;
    }
  }
  return escaped;
}

class Writer {
 public:
  void children(const Node &node) {
    for (const Node &child : node.children) write(child);
  }

  std::string text;

 private:
  void write(const Node &node) {
    if (node.schema->kind == NodeKind::leaf) return leaf(*node.schema, node.value);
    const bool is_whole_list = node.schema->kind == NodeKind::list && !node.is_entry();
    if (is_whole_list) return children(node);
    open(*node.schema);
    for (std::size_t i = 0; i < node.keys.size(); ++i) leaf(*node.schema->children[i], node.keys[i]);
    children(node);
    close(*node.schema);
  }

  void leaf(const SchemaNode &schema, const element::Value &value) {
    open(schema);
    text += escaped(to_text(value));
    close(schema);
  }

  void open(const SchemaNode &schema) {
    const bool inherits = schema.parent != nullptr && schema.parent->module == schema.module;
    const std::string space = inherits ? "" : fmt::format(" xmlns=\"urn:element:{}\"", schema.module);
    fmt::format_to(std::back_inserter(text), "<{}{}>", schema.name, space);
  }

  void close(const SchemaNode &schema) { fmt::format_to(std::back_inserter(text), "</{}>\n", schema.name); }
};

}  // namespace

std::string configuration_text(const element::Tree &tree) {
  Writer writer;
  writer.children(tree.root());
  return std::move(writer.text);
}
