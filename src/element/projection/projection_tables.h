#ifndef ELEMENT_PROJECTION_PROJECTION_TABLES_H
#define ELEMENT_PROJECTION_PROJECTION_TABLES_H

#include <cstdint>
#include <string_view>
#include <vector>

#include "element/datastore/tree.h"
#include "element/profile/profile.h"
#include "element/projection/projection.h"

namespace element {

/// A VPN as its operator wrote it, with the identifier that its application gave it. Valid as long as the tree is.
struct Vpn {
  const Value *group = nullptr;
  const Value *name = nullptr;
  std::uint32_t id = 0;
  const Node *entry = nullptr;
};

/// A group, with or without VPNs.
struct VpnGroup {
  const Value *name = nullptr;
  std::vector<Vpn> vpns;
};

using VpnGroups = std::vector<VpnGroup>;

// The tables, in the order of the data model. Each function appends one table's entries to the derived tree, in any
// order. What an operator did not set is absent, unless a value stands for it.

/// Which interfaces are attached to a VPLS VPN.
void derive_vpls_attachments(Tree &derived, const VpnGroups &groups);
/// Each VPLS VPN's VLAN, 0 without one.
void derive_vpls_bridge_domains(Tree &derived, const VpnGroups &groups);
/// The pseudowires of each VPLS VPN.
void derive_vpls_neighbors(Tree &derived, const VpnGroups &groups);
/// Groups, VPNs, bridge domains and their interfaces with encapsulation, nested.
void derive_vpls_groups(Tree &derived, const VpnGroups &groups);
/// Which interfaces are attached to a VPWS VPN, with their VLAN, 0 without one.
void derive_vpws_attachments(Tree &derived, const VpnGroups &groups);
/// The encapsulation of each attachment; its entry is there without one, too.
void derive_vpws_encapsulations(Tree &derived, const VpnGroups &groups);
/// The pseudowires of each VPWS VPN, neighbours and backup neighbours.
void derive_vpws_tunnels(Tree &derived, const VpnGroups &groups);
/// Groups and their VPNs.
void derive_vpws_groups(Tree &derived, const VpnGroups &groups);
/// The LDP interfaces that are layer-3 interfaces.
void derive_ldp_interfaces(Tree &derived, const Tree &configuration, Identifiers &identifiers);

/// One entry a VPLS VPN.
void derive_vpls_config_table(Tree &derived, const VpnGroups &groups);
/// One entry a VPWS VPN.
void derive_vpws_config_table(Tree &derived, const VpnGroups &groups);
/// One entry a pseudowire of either family.
void derive_pseudowire_table(Tree &derived, const VpnGroups &vpls_groups, const VpnGroups &vpws_groups);
/// The static members of VLANs, by ifindex. Throws InputError for an interface that the profile does not have.
void derive_static_member_table(Tree &derived, const Tree &configuration, const Profile &profile);
/// The interfaces of multicast snooping, by ifindex. Throws InputError as the above.
void derive_snooping_table(Tree &derived, const Tree &configuration, const Profile &profile);

/// What an attachment's encapsulation says, into the nodes of these names below `parent`: the untagged leaf and the
/// list of ranges, each only when configured.
void derive_encapsulation(Node &parent, const Node &encapsulation, std::string_view untagged_leaf,
                          std::string_view range_list);

}  // namespace element

#endif
