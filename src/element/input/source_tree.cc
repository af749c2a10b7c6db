#include "element/input/source_tree.h"

namespace element {

SourceTree::SourceTree() { open("", 0); }

void SourceTree::open(std::string_view name, std::size_t line) {
  name.remove_prefix(name.find(':') + 1);  // the whole name where it has no colon
  auto known = names_.find(name);
  if (known == names_.end()) known = names_.emplace(name).first;
  open_.push_back(nodes_.size());
  Node node;
  node.name = &*known;
  node.line = line;
  nodes_.push_back(node);
  pending_text_.clear();
}

void SourceTree::close() {
  if (open_.back() == root()) return;
  Node &node = nodes_[open_.back()];
  node.end = nodes_.size();
  if (first_child(open_.back()) == node.end) {
    node.text_begin = texts_.size();
    node.text_size = pending_text_.size();
    texts_ += pending_text_;
  }
  pending_text_.clear();
  open_.pop_back();
}

}  // namespace element
