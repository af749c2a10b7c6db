#ifndef CONFIG_VALIDATE_COMN_SNAPSHOT_ACCESS_RECORDS_H
#define CONFIG_VALIDATE_COMN_SNAPSHOT_ACCESS_RECORDS_H

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <tuple>

/// One VLAN range on an access interface, both ends included. (0, 0) stands for an attachment without a VLAN: the
/// untagged encapsulation, or a VPN that takes the whole port because it has no basic VLAN; (v, v) also for the VPN's
/// basic VLAN v.
struct st_acc_dot1q_range_t {
  std::uint32_t vlan_min = 0;
  std::uint32_t vlan_max = 0;
};

/// Compares (min, max) of the left range with (min, min) of the right one, so any two ranges with the same minimum are
/// equivalent: a set keeps the range that came first for a minimum and drops later ones, whatever their maximum. That
/// is meant: an encapsulation range that starts at the basic VLAN is absorbed by the basic VLAN. A strict weak ordering
/// only while no range's minimum is above its maximum.
bool operator<(const st_acc_dot1q_range_t &a, const st_acc_dot1q_range_t &b);

/// Whether the range is (0, 0).
bool is_without_vlan(const st_acc_dot1q_range_t &range);

/// The kind of a VPN inside a key. Not numbered as vpn_app::VpnType is; the two are never converted into each other.
enum vpn_type_t { VPN_TYPE_VPWS = 0, VPN_TYPE_VPLS = 1 };

/// The identity of one VPN. Names are in prefixed form, as messages print them. The VPN's numeric id is no part of it:
/// two VPNs that differ only in the id are one.
struct group_vpn_id_t {
  std::string group_name;  ///< "vpls-group " or "vpws-group " and the group's key
  std::string vpn_name;    ///< "vpn " and the VPN's key
  vpn_type_t vpn_type = VPN_TYPE_VPWS;
};

/// Lexicographic in the order of the fields. The maps need this order only; equality is kept for callers outside.
bool operator<(const group_vpn_id_t &a, const group_vpn_id_t &b);
bool operator==(const group_vpn_id_t &a, const group_vpn_id_t &b);
bool operator!=(const group_vpn_id_t &a, const group_vpn_id_t &b);

/// The key of a VPN from its prefixed names; the group's name decides the type.
group_vpn_id_t make_group_vpn_id(const std::string &group, const std::string &vpn);

/// What one access interface carries for one VPN.
struct acc_intf_vpn_info_t {
  std::set<st_acc_dot1q_range_t> dot1q_ranges;
  /// The most recent recording came from the interface's own encapsulation and not from the VPN's basic VLAN.
  bool encap_cfg = false;
};

/// What one access interface carries, by VPN.
using intf_vpns_t = std::map<group_vpn_id_t, acc_intf_vpn_info_t>;

/// What all access interfaces carry, by name.
using intf_map_t = std::map<std::string, intf_vpns_t>;

/// (group, VPN, interface) -> the operation (enum confd_iter_op) that the transaction performs on the attachment, or 0
/// for none.
using mop_map_t = std::map<std::tuple<std::string, std::string, std::string>, std::int32_t>;

/// Where a recorded range came from.
enum vlan_cfg_type_t {
  VLAN_CFG_BASIC = 0,  ///< the VPN's basic VLAN: the bridge-domain VLAN (VPLS), the access interface's dot1q (VPWS)
  VLAN_CFG_ENCAP = 1   ///< the access interface's encapsulation: untagged, or one dot1q-range
};

/// How an attachment matches traffic, which selects the conflicts that are looked for. Holds any
/// number: the rules say what one that is neither means to them.
enum en_vpn_match_type_t : std::int32_t {
  VPN_MATCH_PORT_BASED = 0,  ///< takes the whole port
  VPN_MATCH_DOT1Q = 1        ///< takes VLANs of the port
};

#endif
