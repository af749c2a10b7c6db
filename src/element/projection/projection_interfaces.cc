#include <fmt/format.h>

#include "element/datastore/lookup.h"
#include "element/profile/nearest_interfaces.h"
#include "element/projection/projection_tables.h"
#include "element/projection/unknown_interface.h"

namespace element {
namespace {

// The VLAN manager runs as one instance.
constexpr std::uint32_t kVlanManagerInstance = 1;

constexpr std::size_t kMostNear = 3;

/// The ifindex of the interface that an entry below a base list names.
std::int32_t ifindex_of(const Profile &profile, const Node &owner, const Node &interface) {
  const std::string name = to_text(interface.keys.front());
  if (const Interface *known = profile.by_name(name)) return known->ifindex;
  throw UnknownInterface({{owner.schema->parent, {}}, {owner.schema, owner.keys}, {interface.schema, interface.keys}},
                         not_in_profile(nearest_interfaces(name, profile, kMostNear)));
}

const Nodes &entries_of(const Tree &configuration, std::string_view list_path) {
  static const Nodes none;
  const Node *list = configuration.find(list_path);
  return list ? list->children : none;
}

}  // namespace

void derive_ldp_interfaces(Tree &derived, const Tree &configuration, IdentifierSpace &identifiers) {
  for (const Node &interface : entries_of(configuration, "/config/l3-interface")) {
    identifiers.of({to_text(interface.keys.front()), ""});
  }
  Node &list = derived.put(ldp_interface_table);
  const Node *layer3_interfaces = configuration.find("/config/l3-interface");
  for (const Node &uplink : entries_of(configuration, "/mpls/ldp/interface")) {
    const Node *interface = layer3_interfaces ? layer3_interfaces->find_entry(uplink.keys) : nullptr;
    const auto vlan = number_below(interface, {"vlan"});
    if (!vlan) continue;
    const Value &name = uplink.keys.front();
    append_entry(list, {name, identifiers.of({to_text(name), ""}), fmt::to_string(*vlan)});
  }
}

void derive_static_member_table(Tree &derived, const Tree &configuration, const Profile &profile) {
  Node &list = derived.put(static_member_table);
  for (const Node &vlan : entries_of(configuration, "/config/vlan")) {
    const auto id = static_cast<std::int32_t>(number(vlan.keys.front()).value_or(0));
    for (const Node &member : entries_below(&vlan, {"interface"})) {
      append_entry(list, {kVlanManagerInstance, id, ifindex_of(profile, vlan, member)});
    }
  }
}

void derive_snooping_table(Tree &derived, const Tree &configuration, const Profile &profile) {
  Node &list = derived.put(snooping_table);
  for (const Node &instance : entries_of(configuration, "/config/igmp-snooping")) {
    for (const Node &member : entries_below(&instance, {"interface"})) {
      append_entry(list, {instance.keys.front(), ifindex_of(profile, instance, member)});
    }
  }
}

}  // namespace element
