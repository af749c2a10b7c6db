#include "report/change_list.h"

#include "report/value_text.h"

namespace report {
namespace {

using element::Change;
using element::ChangeKind;
using element::Node;
using element::NodeKind;

std::optional<std::string> value_of(const Node *node) {
  if (node == nullptr || node->schema->kind != NodeKind::leaf) return std::nullopt;
  if (node->schema->type == element::ValueType::empty) return std::nullopt;
  return value_text(*node);
}

ChangeMark mark_of(const Change &change) {
  if (change.before == nullptr) return ChangeMark::added;
  if (change.after == nullptr) return ChangeMark::removed;
  return ChangeMark::changed;
}

class Lister {
 public:
  explicit Lister(bool with_derived) : with_derived_(with_derived) {}

  void list_below(const Change &change) {
    for (const Change &below : change.children) {
      if (below.schema->derived && !with_derived_) continue;
      // A list stands in no path of its own: its entries do.
      if (below.schema->kind == NodeKind::list && !below.is_entry()) {
        list_below(below);
      } else {
        list(below);
      }
    }
  }

  std::vector<ListedChange> changes;

 private:
  void list(const Change &change) {
    const bool is_outermost_entry = object_.empty() && change.is_entry();
    path_.push_back({change.schema, change.is_entry() ? change.keys() : std::vector<element::Value>{}});
    if (is_outermost_entry) object_ = element::to_text(path_);
    if (change.kind != ChangeKind::below && change.kind != ChangeKind::modified) add(change);
    list_below(change);
    if (is_outermost_entry) object_.clear();
    path_.pop_back();
  }

  void add(const Change &change) {
    std::string path = element::to_text(path_);
    std::string object = object_.empty() ? path : object_;
    changes.push_back({mark_of(change), std::move(path), std::move(object), value_of(change.before),
                       value_of(change.after), change.schema->derived});
  }

  bool with_derived_;
  element::Path path_;
  std::string object_;
};

}  // namespace

std::vector<ListedChange> list_changes(const Change &root, bool with_derived) {
  Lister lister(with_derived);
  lister.list_below(root);
  return std::move(lister.changes);
}

}  // namespace report
