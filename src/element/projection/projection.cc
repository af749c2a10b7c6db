#include "element/projection/projection.h"

#include "element/datastore/lookup.h"
#include "element/projection/projection_tables.h"

namespace element {
namespace {

constexpr Enumeration kUntagged{1};
constexpr std::uint32_t kVplsPseudowire = 1;
constexpr std::uint32_t kVpwsPseudowire = 2;
constexpr std::uint32_t kVpwsBackupPseudowire = 3;

std::uint32_t identifier(std::map<Identifiers::Name, std::uint32_t> &known, Identifiers::Name name) {
  const auto next = static_cast<std::uint32_t>(known.size() + 1);
  return known.try_emplace(std::move(name), next).first->second;
}

using Identify = std::uint32_t (Identifiers::*)(const std::string &, const std::string &);

VpnGroups groups_of(const Tree &configuration, std::string_view list_path, Identifiers &identifiers,
                    Identify identify) {
  VpnGroups groups;
  const Node *list = configuration.find(list_path);
  if (list == nullptr) return groups;
  for (const Node &group : list->children) {
    const Value &group_name = group.keys.front();
    groups.push_back({&group_name, {}});
    for (const Node &vpn : entries_below(&group, {"vpn"})) {
      const Value &name = vpn.keys.front();
      const std::uint32_t id = (identifiers.*identify)(to_text(group_name), to_text(name));
      groups.back().vpns.push_back({&group_name, &name, id, &vpn});
    }
  }
  return groups;
}

void append_pseudowires(Node &table, std::uint32_t type, const Vpn &vpn, const std::vector<Node> &neighbors) {
  for (const Node &neighbor : neighbors) append_entry(table, {type, vpn.id, neighbor.keys.front()});
}

}  // namespace

std::uint32_t Identifiers::vpls(const std::string &group, const std::string &vpn) {
  return identifier(vpls_, {group, vpn});
}

std::uint32_t Identifiers::vpws(const std::string &group, const std::string &vpn) {
  return identifier(vpws_, {group, vpn});
}

std::uint32_t Identifiers::layer3(const std::string &interface) { return identifier(layer3_, {interface, ""}); }

void derive_encapsulation(Node &parent, const Node &encapsulation, std::string_view untagged_leaf,
                          std::string_view range_list) {
  if (find_below(&encapsulation, {"untagged"}) != nullptr) set_named(parent, untagged_leaf, kUntagged);
  const std::vector<Node> &ranges = entries_below(&encapsulation, {"dot1q-range"});
  if (ranges.empty()) return;
  Node &list = child_named(parent, range_list);
  for (const Node &range : ranges) {
    append_entry(list, {number(range.keys.front()).value_or(0), number(range.keys.back()).value_or(0)});
  }
}

void derive_pseudowire_table(Tree &derived, const VpnGroups &vpls_groups, const VpnGroups &vpws_groups) {
  Node &table = derived.put("/KZ-PWE3-MIB/pwTable/pwEntry");
  for (const VpnGroup &group : vpls_groups) {
    for (const Vpn &vpn : group.vpns) {
      append_pseudowires(table, kVplsPseudowire, vpn, entries_below(vpn.entry, {"vfi", "neighbor"}));
    }
  }
  for (const VpnGroup &group : vpws_groups) {
    for (const Vpn &vpn : group.vpns) {
      append_pseudowires(table, kVpwsPseudowire, vpn, entries_below(vpn.entry, {"neighbor"}));
      append_pseudowires(table, kVpwsBackupPseudowire, vpn, entries_below(vpn.entry, {"backup-neighbor"}));
    }
  }
}

void project(Tree &tree, const Profile &profile, Identifiers &identifiers) {
  tree.sort();
  const VpnGroups vpls = groups_of(tree, "/mpls/l2vpn-config/l2vpn/vpls-group", identifiers, &Identifiers::vpls);
  const VpnGroups vpws = groups_of(tree, "/mpls/l2vpn-config/l2vpn/vpws-group", identifiers, &Identifiers::vpws);

  // A tree of its own, so that what is read stays in its place while entries are added.
  Tree derived(tree.schema());
  derive_vpls_attachments(derived, vpls);
  derive_vpls_bridge_domains(derived, vpls);
  derive_vpls_neighbors(derived, vpls);
  derive_vpls_groups(derived, vpls);
  derive_vpws_attachments(derived, vpws);
  derive_vpws_encapsulations(derived, vpws);
  derive_vpws_tunnels(derived, vpws);
  derive_vpws_groups(derived, vpws);
  derive_ldp_interfaces(derived, tree, identifiers);
  derive_vpls_config_table(derived, vpls);
  derive_vpws_config_table(derived, vpws);
  derive_pseudowire_table(derived, vpls, vpws);
  derive_static_member_table(derived, tree, profile);
  derive_snooping_table(derived, tree, profile);

  derived.sort();
  for (Node &top : derived.root().children) tree.root().children.push_back(std::move(top));
  tree.sort();
}

}  // namespace element
