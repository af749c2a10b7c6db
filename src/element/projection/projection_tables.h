#ifndef ELEMENT_PROJECTION_PROJECTION_TABLES_H
#define ELEMENT_PROJECTION_PROJECTION_TABLES_H

#include <array>
#include <cstdint>
#include <string_view>

#include "element/datastore/tree.h"
#include "element/profile/profile.h"
#include "element/projection/identifiers.h"

namespace element {

/// A VPN as its operator wrote it, with the identifier that its application gave it. Valid as long as the tree is.
struct Vpn {
  const Value *group = nullptr;
  const Value *name = nullptr;
  std::uint32_t id = 0;
  const Node *entry = nullptr;
};

/// A derived list and how its entries for one VPN are appended to it, in any order.
struct VpnTable {
  std::string_view path;
  void (*derive)(Node &list, const Vpn &vpn);
};

/// What is derived for the VPNs of one family.
struct VpnFamily {
  std::string_view groups;       ///< path of the operator's list of groups
  std::string_view group_table;  ///< path of the derived list of groups
  std::string_view vpn_list;     ///< name of the list of VPNs below an entry of the group table
  void (*derive_vpn)(Node &vpn_list, const Vpn &vpn);
  std::array<VpnTable, 5> tables;
};

extern const VpnFamily vpls_family;
extern const VpnFamily vpws_family;

inline constexpr const char *ldp_interface_table = "/internal/int-ldp-intf-l3";
inline constexpr const char *static_member_table =
    "/KZ-VLAN-MANAGER-MIB/vlanMgrStaticMemberTable/vlanMgrStaticMemberEntry";
inline constexpr const char *snooping_table = "/KZ-MGMD-ROUTER-MIB/mgmdRouterInterfaceTable/mgmdRouterInterfaceEntry";

/// The LDP interfaces that are layer-3 interfaces.
void derive_ldp_interfaces(Tree &derived, const Tree &configuration, IdentifierSpace &identifiers);
/// The static members of VLANs, by ifindex. Throws InputError for an interface that the profile does not have.
void derive_static_member_table(Tree &derived, const Tree &configuration, const Profile &profile);
/// The interfaces of multicast snooping, by ifindex. Throws InputError as the above.
void derive_snooping_table(Tree &derived, const Tree &configuration, const Profile &profile);

/// Which of a VPN's pseudowires an entry of the pseudowire table is.
enum class PseudowireRole : std::uint32_t { vpls_neighbor = 1, vpws_neighbor = 2, vpws_backup_neighbor = 3 };

/// Appends an entry of the pseudowire table for each of the VPN's neighbours.
void append_pseudowires(Node &table, PseudowireRole role, const Vpn &vpn, const Nodes &neighbors);

/// What an attachment's encapsulation says, into the nodes of these names below `parent`: the untagged leaf and the
/// list of ranges, each only when configured.
void derive_encapsulation(Node &parent, const Node &encapsulation, std::string_view untagged_leaf,
                          std::string_view range_list);

}  // namespace element

#endif
