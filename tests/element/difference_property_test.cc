#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <map>
#include <set>

#include "drawn_configuration.h"
#include "element/datastore/transaction.h"
#include "print.h"

using element::Change;
using element::ChangeKind;
using element::Node;
using element::NodeKind;
using element::Profile;
using element::Tree;

namespace {

Profile four_interfaces() {
  return Profile({}, {{"eth0", 1, 1000}, {"eth1", 2, 1001}, {"eth2", 3, 1002}, {"eth3", 4, 1003}});
}

void apply(const Change &change, Node &parent);

void apply_below(const Change &change, Node &node) {
  for (const Change &child : change.children) apply(child, node);
}

Node &entry_with(Node &list, const std::vector<element::Value> &keys) {
  for (Node &entry : list.children) {
    if (element::compare_keys(entry.keys, keys) == 0) return entry;
  }
  return append_entry(list, keys);
}

/// Does to the old tree what a change says, from what the change itself holds and the values it sets.
void apply(const Change &change, Node &parent) {
  if (change.kind == ChangeKind::deleted) {
    const auto is_deleted = [&change](const Node &node) {
      return node.schema == change.schema && element::compare_keys(node.keys, change.before->keys) == 0;
    };
    RC_ASSERT(std::count_if(parent.children.begin(), parent.children.end(), is_deleted) == 1);
    parent.children.erase(std::find_if(parent.children.begin(), parent.children.end(), is_deleted));
    return;
  }
  Node &node = change.is_entry() ? entry_with(parent, change.keys()) : child(parent, *change.schema);
  if (change.schema->kind == NodeKind::leaf) {
    node.value = change.after->value;
    return;
  }
  apply_below(change, node);
}

/// Whether a change says something: what it reports as new was not there, what it reports as gone was.
bool is_real(const Change &change) {
  switch (change.kind) {
    case ChangeKind::created:
      return change.before == nullptr && change.after != nullptr;
    case ChangeKind::deleted:
      return change.before != nullptr && change.after == nullptr && change.children.empty();
    case ChangeKind::modified:
      return change.before != nullptr && change.after != nullptr && change.is_entry() && !change.children.empty();
    case ChangeKind::below:
      return !change.is_entry() && !change.children.empty();
    case ChangeKind::value_set:
      return change.before == nullptr || compare(change.before->value, change.after->value) != 0;
  }
  return false;
}

void check_are_real(const std::vector<Change> &changes) {
  for (const Change &change : changes) {
    RC_ASSERT(is_real(change));
    check_are_real(change.children);
  }
}

void check_find_change(const Change &root, const Change &change, const element::Path &path) {
  RC_ASSERT(find_change(root, path) == &change);
  for (const Change &child : change.children) {
    element::Path below = path;
    if (child.is_entry()) {
      below.back().keys = child.keys();
    } else {
      below.push_back({child.schema, {}});
    }
    check_find_change(root, child, below);
  }
}

RC_GTEST_PROP(DifferenceProperty, applied_to_the_old_tree_gives_the_new, ()) {
  const auto transaction =
      make_transaction(tree_of(*drawn_configuration()), tree_of(*drawn_configuration()), four_interfaces());
  Tree patched = transaction->running;
  apply_below(transaction->changes, patched.root());
  patched.sort();
  RC_ASSERT(print(patched) == print(transaction->candidate));
}

RC_GTEST_PROP(DifferenceProperty, every_change_is_real_and_is_found_by_its_path, ()) {
  const auto transaction =
      make_transaction(tree_of(*drawn_configuration()), tree_of(*drawn_configuration()), four_interfaces());
  check_are_real(transaction->changes.children);
  check_find_change(transaction->changes, transaction->changes, {});
}

RC_GTEST_PROP(DifferenceProperty, of_a_tree_with_itself_is_empty, ()) {
  const Lines lines = *drawn_configuration();
  const auto transaction = make_transaction(tree_of(lines), tree_of(lines), four_interfaces());
  RC_ASSERT(transaction->changes.children.empty());
}

/// The identifier of each VPN of a family, by group and name.
std::map<std::pair<std::string, std::string>, std::string> identifiers(const Tree &tree, const char *groups) {
  std::map<std::pair<std::string, std::string>, std::string> found;
  const Node *list = tree.find(groups);
  if (list == nullptr) return found;
  for (const Node &group : list->children) {
    for (const Node &vpn : group.children.front().children) {
      found[{to_text(group.keys[0]), to_text(vpn.keys[0])}] = to_text(vpn.keys[1]);
    }
  }
  return found;
}

RC_GTEST_PROP(TransactionProperty, a_vpn_keeps_its_identifier_and_shares_it_with_no_other, ()) {
  const auto transaction =
      make_transaction(tree_of(*drawn_configuration()), tree_of(*drawn_configuration()), four_interfaces());
  for (const char *groups : {"/internal/int-vpls-group", "/internal/int-vpws-group"}) {
    auto all = identifiers(transaction->running, groups);
    for (const auto &[vpn, id] : identifiers(transaction->candidate, groups)) {
      RC_ASSERT(all.try_emplace(vpn, id).first->second == id);
    }
    std::set<std::string> distinct;
    for (const auto &[vpn, id] : all) RC_ASSERT(distinct.insert(id).second);
  }
}

}  // namespace
