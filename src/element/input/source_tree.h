#ifndef ELEMENT_INPUT_SOURCE_TREE_H
#define ELEMENT_INPUT_SOURCE_TREE_H

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "element/schema/schema.h"

namespace element {

/// The nodes of a configuration as they stand in its file, with their lines and the texts of keys. A JSON list is a
/// node without content for the member itself, followed by one sibling of the same schema for each entry; an XML list
/// is its entries.
class SourceTree {
 public:
  using NodeId = std::uint32_t;  ///< nodes are numbered from 1 in the order of the file

  SourceTree();
  SourceTree(SourceTree &&) = default;
  SourceTree(const SourceTree &) = delete;
  SourceTree &operator=(const SourceTree &) = delete;

  NodeId root() const { return 0; }
  NodeId size() const { return static_cast<NodeId>(nodes_.size()); }  ///< with the root
  /// The children of p are visited by: for (n = first_child(p); n != end(p); n = end(n)).
  NodeId first_child(NodeId node) const { return node + 1; }
  NodeId end(NodeId node) const { return nodes_[node].end == 0 ? size() : nodes_[node].end; }

  bool is_open(NodeId node) const { return nodes_[node].end == 0; }

  /// The first child with this schema from `child` on; `end` of the children where there is none.
  NodeId find_from(NodeId child, NodeId end, const SchemaNode &schema) const;

  /// The ancestors of a node and the node itself, outermost first, without the root.
  std::vector<NodeId> way_to(NodeId node) const;

  /// Null for the root.
  const SchemaNode *schema(NodeId node) const { return nodes_[node].schema; }
  /// From 1.
  std::size_t line(NodeId node) const { return nodes_[node].line; }
  /// The text of a key leaf; empty for other nodes. Valid while the tree is not changed.
  std::string_view text(NodeId node) const {
    return std::string_view(texts_).substr(nodes_[node].text_begin, nodes_[node].text_size);
  }

  /// The node that is open.
  NodeId open_node() const { return open_.back(); }
  /// Begins a child of the node that is open.
  void open(const SchemaNode &schema, std::size_t line);
  /// Sets the text of the node that is open.
  void set_text(std::string_view text);
  /// Ends the node that is open. Precondition: it is not the root.
  void close();

 private:
  struct Node {
    const SchemaNode *schema = nullptr;
    std::size_t text_begin = 0;
    std::uint32_t text_size = 0;
    std::uint32_t line = 0;
    NodeId end = 0;  ///< one past the last node below; 0 while the node is open
  };

  std::vector<Node> nodes_;  ///< in the order of the file: a node comes before its descendants
  std::vector<NodeId> open_;
  std::string texts_;
};

/// The value that a key leaf has in the file; nothing if its text is none of its type.
std::optional<Value> key_value(const SourceTree &tree, SourceTree::NodeId leaf);

/// The node's path as parse_path reads it: "/config/vlan{5}". Keys that are not read yet leave out the braces.
std::string path_text(const SourceTree &tree, SourceTree::NodeId node);

/// The line of each node of a whole configuration by its path, as path_text writes it; of nodes with one path, that of
/// the first. Takes time in proportion to the size of the tree.
std::unordered_map<std::string, std::size_t> lines_by_path(const SourceTree &tree);

}  // namespace element

#endif
