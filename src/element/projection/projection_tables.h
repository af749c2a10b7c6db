#ifndef ELEMENT_PROJECTION_PROJECTION_TABLES_H
#define ELEMENT_PROJECTION_PROJECTION_TABLES_H

#include <array>
#include <cstdint>
#include <string_view>

#include "element/datastore/tree.h"
#include "element/profile/profile.h"
#include "element/projection/identifiers.h"

namespace element {

/// A VPN of the operator's configuration and the identifier that its application assigned. The pointers lead into the
/// operator's tree and are valid as long as that tree.
struct Vpn {
  const Value *group = nullptr;
  const Value *name = nullptr;
  std::uint32_t id = 0;
  const Node *entry = nullptr;
};

/// A derived list, and the function that appends the entries of one VPN to it, in any order.
struct VpnTable {
  std::string_view path;
  void (*derive)(Node &list, const Vpn &vpn);
};

/// A family of VPNs (VPLS or VPWS) and the tables derived for it.
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

/// Derives the table of LDP interfaces: those interfaces of LDP that are layer-3 interfaces.
void derive_ldp_interfaces(Tree &derived, const Tree &configuration, IdentifierSpace &identifiers);
/// Derives the table of static VLAN members, keyed by ifindex. Throws InputError for an interface that the profile does
/// not have.
void derive_static_member_table(Tree &derived, const Tree &configuration, const Profile &profile);
/// Derives the table of multicast snooping interfaces, keyed by ifindex. Throws InputError for an interface that the
/// profile does not have.
void derive_snooping_table(Tree &derived, const Tree &configuration, const Profile &profile);

/// The kind of neighbour that an entry of the pseudowire table belongs to; part of its key.
enum class PseudowireRole : std::uint32_t { vpls_neighbor = 1, vpws_neighbor = 2, vpws_backup_neighbor = 3 };

/// Appends an entry of the pseudowire table for each of the VPN's neighbours.
void append_pseudowires(Node &table, PseudowireRole role, const Vpn &vpn, const Nodes &neighbors);

/// Copies an attachment's encapsulation into children of `parent`: the untagged flag into the leaf `untagged_leaf`, the
/// VLAN ranges into the list `range_list`. What is not configured is not created.
void derive_encapsulation(Node &parent, const Node &encapsulation, std::string_view untagged_leaf,
                          std::string_view range_list);

}  // namespace element

#endif
