#ifndef ELEMENT_INPUT_OWN_NODES_H
#define ELEMENT_INPUT_OWN_NODES_H

#include <bitset>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "element/input/configuration_format.h"
#include "element/input/source_tree.h"

namespace element {

/// Follows the element's own nodes of a configuration through the data model, in the order of the file, and keeps their
/// lines. Every fault is an InputError with the message "FILE:LINE: PATH: fault; expected ...". Values are not checked.
class OwnNodes {
 public:
  /// Errors name `origin` as the file.
  OwnNodes(const Schema &schema, InputFormat format, std::string origin);

  /// The node that is open; the data model's root where none is.
  const SchemaNode &open_node() const { return *open_.back().schema; }

  /// The line on which it begins; 0 for the root.
  std::size_t open_line() const { return tree_.line(tree_.open_node()); }
  bool is_open() const { return open_.size() > 1; }

  /// The child of the open node with this name and module. Throws if the data model has none, or if it is a node that
  /// an operator does not write.
  const SchemaNode &child(std::string_view module, std::string_view name, std::size_t line) const;

  /// Opens a child of the open node. Throws if the open node holds one already, unless it is an entry of a list in XML.
  void open(const SchemaNode &child, std::size_t line);
  /// Notes the member of a list in JSON, whose entries follow by open_entry(). Throws if the open node holds it
  /// already.
  void open_list(const SchemaNode &list, std::size_t line);
  void open_entry(const SchemaNode &list, std::size_t line);
  /// The text of the leaf that is open, as the file has it without escapes.
  void set_text(std::string_view text);
  /// Closes the open node. Throws if it lacks a key, or a mandatory leaf.
  void close();

  /// Throws an error about the open node, or about what it holds at `line`.
  [[noreturn]] void refuse(std::size_t line, const std::string &fault, const std::string &expected) const;

  SourceTree take_tree() { return std::move(tree_); }

 private:
  static constexpr std::size_t kMostChildren = 64;

  struct Frame {
    const SchemaNode *schema = nullptr;
    std::bitset<kMostChildren> seen;  ///< children, by position
  };

  void enter(const SchemaNode &child, std::size_t line);
  void require_first(const SchemaNode &child, std::size_t line) const;
  void require_whole(const Frame &frame) const;

  const Schema &schema_;
  InputFormat format_;
  std::string origin_;
  SourceTree tree_;
  std::vector<Frame> open_;
};

}  // namespace element

#endif
