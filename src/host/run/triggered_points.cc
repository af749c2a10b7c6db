#include "host/run/triggered_points.h"

#include <algorithm>
#include <set>
#include <unordered_set>

#include "host/seam/agent_paths.h"

namespace host {

namespace {

using element::Change;
using element::ChangeKind;
using element::NodeKind;

// A container that has lost all it held is still there, though the new tree has no node for it.
const element::Value &value_after(const Change &change) {
  static const element::Value none;
  return change.after == nullptr ? none : change.after->value;
}

/// The schema nodes at or below which validation points stand: what else changed, if much, fires nothing.
class GuardedNodes {
 public:
  explicit GuardedNodes(const element::SchemaNode &root) { add(root); }

  bool contains(const element::SchemaNode &node) const { return nodes_.count(&node) != 0; }

 private:
  bool add(const element::SchemaNode &node) {
    bool is_guarded = !node.validation_points.empty();
    for (const auto &child : node.children) is_guarded |= add(*child);
    if (is_guarded) nodes_.insert(&node);
    return is_guarded;
  }

  std::unordered_set<const element::SchemaNode *> nodes_;
};

class Walk {
 public:
  explicit Walk(const element::SchemaNode &root) : guarded_(root) {}

  // A deleted node is not there to be validated; what it was deleted from is met before it.
  void visit(const Change &change) {
    if (change.kind == ChangeKind::deleted || !guarded_.contains(*change.schema)) return;
    const bool is_whole_list = change.schema->kind == NodeKind::list && !change.is_entry();
    if (is_whole_list) return visit_children(change);

    trail_.push_back(&change);
    fire(*change.schema, value_after(change));
    if (change.kind == ChangeKind::created && change.is_entry()) fire_keys(change);
    visit_children(change);
    trail_.pop_back();
  }

  void visit_children(const Change &change) {
    for (const Change &child : change.children) visit(child);
  }

  std::vector<TriggeredPoint> take() { return std::move(points_); }

 private:
  // A key is new where its entry is; it can never change.
  void fire_keys(const Change &entry) {
    const std::size_t count = std::min(entry.schema->key_count, entry.keys().size());
    for (std::size_t i = 0; i < count; ++i) fire(*entry.schema->children[i], entry.keys()[i]);
  }

  void fire(const element::SchemaNode &node, const element::Value &value) {
    for (const element::ValidationPoint &point : node.validation_points) {
      const bool is_first = fired_.insert(point.name).second;
      if (is_first || point.each_node) points_.push_back({point.name, trail_, &node, &value});
    }
  }

  GuardedNodes guarded_;
  std::vector<const Change *> trail_;
  std::set<std::string> fired_;
  std::vector<TriggeredPoint> points_;
};

}  // namespace

element::Path TriggeredPoint::path() const {
  element::Path path;
  for (const Change *change : changes) {
    path.push_back({change->schema, change->is_entry() ? change->keys() : std::vector<element::Value>{}});
  }
  if (changes.back()->schema != node) path.push_back({node, {}});
  return path;
}

KeyPath TriggeredPoint::key_path() const {
  KeyPath path;
  for (const Change *change : changes) {
    path.push(*change->schema);
    if (change->is_entry()) path.push(*change->schema, change->keys());
  }
  if (changes.back()->schema != node) path.push(*node);
  return path;
}

std::vector<TriggeredPoint> triggered_points(const element::Transaction &transaction) {
  Walk walk(transaction.candidate.schema().root());
  walk.visit_children(transaction.changes);
  return walk.take();
}

}  // namespace host
