#ifndef ELEMENT_INPUT_SOURCE_TREE_H
#define ELEMENT_INPUT_SOURCE_TREE_H

#include <cstddef>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace element {

/// The elements of an XML text or the members of a JSON text, with their lines. A JSON list becomes an empty node for
/// the member itself, followed by one sibling of the same name for each entry, as XML writes a list.
class SourceTree {
 public:
  using NodeId = std::size_t;

  SourceTree();
  SourceTree(SourceTree &&) = default;
  SourceTree(const SourceTree &) = delete;
  SourceTree &operator=(const SourceTree &) = delete;

  NodeId root() const { return 0; }
  /// The children of p are visited by: for (n = first_child(p); n != end(p); n = end(n)).
  NodeId first_child(NodeId node) const { return node + 1; }
  NodeId end(NodeId node) const { return nodes_[node].end == 0 ? nodes_.size() : nodes_[node].end; }

  /// The name without its module or prefix.
  const std::string &name(NodeId node) const { return *nodes_[node].name; }
  std::size_t line(NodeId node) const { return nodes_[node].line; }
  /// The text of a node without children; empty for other nodes. Valid while the tree is not changed.
  std::string_view text(NodeId node) const {
    return std::string_view(texts_).substr(nodes_[node].text_begin, nodes_[node].text_size);
  }

  /// Begins a child of the node that is open. The module or prefix of `name` is dropped.
  void open(std::string_view name, std::size_t line);
  /// Appends to the text of the node that is open.
  void add_text(std::string_view text) { pending_text_ += text; }
  /// Ends the node that is open; the root stays open.
  void close();

 private:
  struct Node {
    const std::string *name = nullptr;
    std::size_t line = 0;
    NodeId end = 0;  ///< one past the last node below; 0 while the node is open
    std::size_t text_begin = 0;
    std::size_t text_size = 0;
  };

  std::vector<Node> nodes_;  ///< in document order: a node comes before its descendants
  std::vector<NodeId> open_;
  std::set<std::string, std::less<>> names_;  ///< the nodes' names, each stored once
  std::string texts_;
  std::string pending_text_;
};

/// Reads the text of a ConfigurationText. A text that is not well-formed gives a tree without meaning, but no error.
SourceTree read_xml_source(std::string_view text);
SourceTree read_json_source(std::string_view text);

}  // namespace element

#endif
