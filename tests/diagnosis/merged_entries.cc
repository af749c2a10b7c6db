#include "tests/diagnosis/merged_entries.h"

#include <set>
#include <stdexcept>

#include "element/datastore/path.h"

namespace brute_force {

using element::Node;
using element::NodeKind;
using element::Path;

bool is_thing(const Node &node) { return node.is_entry() && node.schema->name != "dot1q-range"; }

namespace {

Path path_of(const Node &node, Path around) {
  if (node.is_entry()) {
    around.back().keys = node.keys;
  } else {
    around.push_back({node.schema, {}});
  }
  return around;
}

void collect_paths(const Node &node, const Path &path, std::set<std::string> &paths) {
  if (is_thing(node)) paths.insert(to_text(path));
  for (const Node &child : node.children) collect_paths(child, path_of(child, path), paths);
}

/// The leafs and ranges of an entry, without what the entries in it hold.
void collect_values(const Node &node, const Path &path, std::vector<std::string> &values) {
  for (const Node &child : node.children) {
    if (is_thing(child)) continue;
    const Path below = path_of(child, path);
    if (child.is_entry()) values.push_back(to_text(below));
    if (child.schema->kind == NodeKind::leaf) values.push_back(to_text(below) + " = " + element::to_text(child.value));
    collect_values(child, below, values);
  }
}

std::vector<std::string> values_of(const Node &entry) {
  std::vector<std::string> values;
  collect_values(entry, {{entry.schema, entry.keys}}, values);
  return values;
}

using Keeps = std::function<bool(const std::string &path)>;

void copy_kept(const Node &from, const Path &path, const Keeps &keeps, Node &to) {
  for (const Node &child : from.children) {
    const Path below = path_of(child, path);
    if (is_thing(child) && !keeps(to_text(below))) continue;
    Node &copy = to.children.push_back({child.schema, child.keys, child.value, {}});
    copy_kept(child, below, keeps, copy);
    if (holds_nothing(copy)) to.children.pop_back();
  }
}

}  // namespace

diagnosis::ChangeStatus MergedEntries::status(std::size_t entry) const {
  const Entry &it = entries_[entry];
  if (it.before == nullptr) return diagnosis::ChangeStatus::added;
  if (it.after == nullptr) return diagnosis::ChangeStatus::removed;
  return values_of(*it.before) == values_of(*it.after) ? diagnosis::ChangeStatus::unchanged
                                                       : diagnosis::ChangeStatus::changed;
}

bool holds_nothing(const Node &node) {
  return node.schema->kind != NodeKind::leaf && !node.is_entry() && !node.schema->presence && node.children.empty();
}

std::size_t count_entries(const Configurations &commit) {
  std::set<std::string> paths;
  collect_paths(commit.running.root(), {}, paths);
  collect_paths(commit.candidate.root(), {}, paths);
  return paths.size();
}

MergedEntries::MergedEntries(const Configurations &commit) : commit_(commit) {
  add_entries(commit.running.root(), {}, 0, false);
  add_entries(commit.candidate.root(), {}, 0, true);
}

void MergedEntries::add_entries(const Node &node, const Path &path, EntrySet around, bool is_candidate) {
  if (is_thing(node)) {
    const auto [found, is_new] = by_path_.emplace(to_text(path), entries_.size());
    if (is_new) entries_.push_back({found->first, around, nullptr, nullptr});
    if (entries_.size() > kMostEntries) throw std::logic_error("more entries than brute force takes");
    (is_candidate ? entries_[found->second].after : entries_[found->second].before) = &node;
    by_node_.emplace(&node, found->second);
    around |= bit(found->second);
  }
  for (const Node &child : node.children) add_entries(child, path_of(child, path), around, is_candidate);
}

EntrySet MergedEntries::with_needs(EntrySet set) const {
  EntrySet result = set;
  for (std::size_t entry = 0; entry < size(); ++entry) {
    if (holds(set, entry)) result |= entries_[entry].needs;
  }
  return result;
}

EntrySet MergedEntries::innermost(EntrySet set) const {
  EntrySet around = 0;
  for (std::size_t entry = 0; entry < size(); ++entry) {
    if (holds(set, entry)) around |= entries_[entry].needs;
  }
  return set & ~around;
}

std::vector<std::string> MergedEntries::paths(EntrySet set) const {
  std::set<std::string> sorted;
  for (std::size_t entry = 0; entry < size(); ++entry) {
    if (holds(set, entry)) sorted.insert(entries_[entry].path);
  }
  return {sorted.begin(), sorted.end()};
}

Configurations MergedEntries::restricted_to(EntrySet set) const {
  return {restricted(commit_.running, set), restricted(commit_.candidate, set)};
}

element::Tree MergedEntries::restricted(const element::Tree &tree, EntrySet set) const {
  element::Tree result(tree.schema());
  copy_children(tree.root(), result.root(), set);
  return result;
}

void MergedEntries::copy_children(const Node &from, Node &to, EntrySet set) const {
  for (const Node &child : from.children) {
    const auto entry = by_node_.find(&child);
    if (entry != by_node_.end() && !holds(set, entry->second)) continue;
    Node &copy = to.children.push_back({child.schema, child.keys, child.value, {}});
    copy_children(child, copy, set);
    if (holds_nothing(copy)) to.children.pop_back();
  }
}

Configurations restricted(const Configurations &commit, const Keeps &keeps) {
  Configurations result{element::Tree(commit.running.schema()), element::Tree(commit.candidate.schema())};
  copy_kept(commit.running.root(), {}, keeps, result.running.root());
  copy_kept(commit.candidate.root(), {}, keeps, result.candidate.root());
  return result;
}

}  // namespace brute_force
