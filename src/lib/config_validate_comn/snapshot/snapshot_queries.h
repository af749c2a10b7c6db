#ifndef CONFIG_VALIDATE_COMN_SNAPSHOT_SNAPSHOT_QUERIES_H
#define CONFIG_VALIDATE_COMN_SNAPSHOT_SNAPSHOT_QUERIES_H

#include <cstdint>
#include <string>

#include "config_validate_comn/snapshot/access_snapshot.h"

// Questions about the snapshot; none reads the configuration. An interface that the snapshot does not know answers
// false. Where several VPNs qualify, the first in key order (group, VPN, type) is named in `other`; without one,
// `other` stays as it was.
//
// A record is port-based when it has no encapsulation of its own, at least one range, and none with both ends non-zero.
// A record is untagged when it has an encapsulation and holds (0, 0).
// An attachment is changed when a change operation other than 0 is recorded for it.

/// A VPN on the interface holds a VLAN of the range; ends count. (0, 0), asked for or recorded, overlaps nothing, and
/// neither does a range whose minimum is above its maximum. A VPN counts also when the range is its own.
bool has_vpn_dot1q_range_overlap(const std::string &interface, st_acc_dot1q_range_t range,
                                 const st_val_acc_dot1q_vpn_t &snapshot, group_vpn_id_t &other);

/// Some record of some interface has an encapsulation.
bool has_interface_with_encapsulation(const intf_map_t &intf_map);

/// The interface has a record that is not port-based.
bool has_vlan_based_vpn_in_interface(const intf_map_t &intf_map, const std::string &interface);

/// The record is port-based. Kept for callers outside the library: the rules ask record_kinds.h.
bool is_interface_vpn_port_based(acc_intf_vpn_info_t record);

/// The interface has a port-based record whose attachment changed.
bool has_modified_port_based_vpn_in_interface(const st_val_acc_dot1q_vpn_t &snapshot, const std::string &interface,
                                              group_vpn_id_t &other);

/// Some interface has a port-based record whose attachment changed.
bool has_modified_port_based_vpn(const st_val_acc_dot1q_vpn_t &snapshot);

/// The interface has a port-based record.
bool has_port_based_vpn_in_interface(const st_val_acc_dot1q_vpn_t &snapshot, const std::string &interface,
                                     group_vpn_id_t &other);

/// The record is untagged. Kept for callers outside the library: the rules ask record_kinds.h.
bool has_encapsulation_untagged(const acc_intf_vpn_info_t &record);

/// The interface has an untagged record.
bool has_encapsulation_untagged_in_interface(const std::string &interface, const st_val_acc_dot1q_vpn_t &snapshot,
                                             group_vpn_id_t &other);

/// An attachment with this basic VLAN (0: none) will be port-based: the VLAN is 0 and it is not untagged.
bool is_interface_vpn_port_based_through_basic_info(std::uint32_t basic_vlan, bool untagged);

#endif
