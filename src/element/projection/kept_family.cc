#include "element/projection/kept_family.h"

#include <utility>

#include "element/datastore/lookup.h"

namespace element {
namespace {

const SchemaNode &schema_at(const Tree &tree, std::string_view path) { return *Tree(tree.schema()).put(path).schema; }

const SchemaNode &schema_of_vpns(const Tree &tree, const VpnFamily &family) {
  return *schema_at(tree, family.group_table).child(family.vpn_list);
}

const Nodes &groups_of(const Tree &configuration, const VpnFamily &family) {
  static const Nodes none;
  const Node *groups = configuration.find(family.groups);
  return groups == nullptr ? none : groups->children;
}

const Nodes &vpns_of(const Node *group) { return entries_below(group, {"vpn"}); }

/// Calls `visit` with the two entries of the same keys, or one and null, in the order of the keys.
template <typename Visit>
void walk_pairs(const Nodes &running, const Nodes &candidate, Visit visit) {
  std::size_t old = 0;
  std::size_t now = 0;
  while (old < running.size() || now < candidate.size()) {
    int which = old == running.size() ? 1 : -1;
    if (old < running.size() && now < candidate.size()) {
      const bool is_shared = &running[old] == &candidate[now];
      which = is_shared ? 0 : compare_keys(running[old].keys, candidate[now].keys);
    }
    visit(which <= 0 ? &running[old] : nullptr, which >= 0 ? &candidate[now] : nullptr);
    if (which <= 0) ++old;
    if (which >= 0) ++now;
  }
}

void identify(const Nodes &groups, IdentifierSpace &identifiers) {
  for (const Node &group : groups) {
    const std::string name = to_text(group.keys.front());
    for (const Node &vpn : vpns_of(&group)) identifiers.of({name, to_text(vpn.keys.front())});
  }
}

}  // namespace

KeptFamily::KeptFamily(const VpnFamily &family, const Tree &running, const Tree &candidate,
                       IdentifierSpace &identifiers)
    : family_(family),
      identifiers_(identifiers),
      running_(running),
      candidate_(candidate),
      group_list_{&schema_at(running, family.group_table), {}, {}, {}},
      vpn_rows_(schema_of_vpns(running, family)) {
  for (const VpnTable &table : family.tables) tables_.emplace_back(schema_at(running, table.path));
  const Nodes &old_groups = groups_of(running_, family);
  identify(old_groups, identifiers);
  walk_pairs(old_groups, groups_of(candidate_, family),
             [this](const Node *old_group, const Node *new_group) { add_group(old_group, new_group); });
  vpn_rows_.finish(is_version_);
  for (KeptRows &table : tables_) table.finish(is_version_);
}

void KeptFamily::add_group(const Node *running, const Node *candidate) {
  const Node &either = running != nullptr ? *running : *candidate;
  const std::string name = to_text(either.keys.front());
  VpnSelection old_vpns;
  VpnSelection new_vpns;
  walk_pairs(vpns_of(running), vpns_of(candidate), [&](const Node *before, const Node *after) {
    for (const Node *entry : {before, before == after ? nullptr : after}) {
      if (entry == nullptr) continue;
      const auto number = static_cast<std::uint32_t>(vpns_.size());
      const Value &own_name = entry->keys.front();
      add_vpn({&either.keys.front(), &own_name, identifiers_.of({name, to_text(own_name)}), entry},
              entry == after && before != nullptr && before != after);
      if (entry == before) old_vpns.add({number, number + 1});
      if (entry == after) new_vpns.add({number, number + 1});
    }
  });
  if (running != nullptr) add_group_row(*running, old_vpns);
  if (candidate != nullptr && candidate != running) add_group_row(*candidate, new_vpns);
}

void KeptFamily::add_vpn(const Vpn &vpn, bool is_version) {
  number_of_vpn_.emplace(vpn.entry, static_cast<std::uint32_t>(vpns_.size()));
  vpns_.push_back(vpn.entry);
  is_version_.push_back(is_version);
  vpn_rows_.add([&](Node &list) { family_.derive_vpn(list, vpn); });
  for (std::size_t i = 0; i < tables_.size(); ++i) {
    tables_[i].add([&](Node &list) { family_.tables[i].derive(list, vpn); });
  }
}

void KeptFamily::add_group_row(const Node &group, const VpnSelection &vpns) {
  Node &row = append_entry(group_list_, {group.keys.front()});
  vpn_rows_.append(vpns, child_named(row, family_.vpn_list).children);
  groups_.emplace(&group, Group{vpns, group_list_.children.size() - 1});
}

const KeptFamily::Group *KeptFamily::find_group(const Node &entry) const {
  const auto found = groups_.find(&entry);
  return found == groups_.end() ? nullptr : &found->second;
}

std::optional<std::uint32_t> KeptFamily::find_vpn(const Node &entry, std::uint32_t guess) const {
  for (std::uint32_t number = guess; number < vpns_.size() && number < guess + 2; ++number) {
    if (vpns_[number] == &entry) return number;
  }
  const auto found = number_of_vpn_.find(&entry);
  return found == number_of_vpn_.end() ? std::nullopt : std::optional(found->second);
}

}  // namespace element
