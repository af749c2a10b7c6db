#ifndef TESTS_SUPPORT_ACCESS_PRINTERS_H
#define TESTS_SUPPORT_ACCESS_PRINTERS_H

#include <ostream>

#include "config_validate_comn/snapshot/access_records.h"

// The access snapshot's records as test failures show them, and compared field by field.

inline bool operator==(const st_acc_dot1q_range_t &a, const st_acc_dot1q_range_t &b) {
  return a.vlan_min == b.vlan_min && a.vlan_max == b.vlan_max;
}

inline bool operator==(const acc_intf_vpn_info_t &a, const acc_intf_vpn_info_t &b) {
  return a.dot1q_ranges == b.dot1q_ranges && a.encap_cfg == b.encap_cfg;
}

inline std::ostream &operator<<(std::ostream &out, const st_acc_dot1q_range_t &range) {
  return out << '(' << range.vlan_min << ", " << range.vlan_max << ')';
}

inline std::ostream &operator<<(std::ostream &out, const group_vpn_id_t &vpn) {
  return out << vpn.group_name << ' ' << vpn.vpn_name << (vpn.vpn_type == VPN_TYPE_VPLS ? " (VPLS)" : " (VPWS)");
}

inline std::ostream &operator<<(std::ostream &out, const acc_intf_vpn_info_t &record) {
  out << (record.encap_cfg ? "encapsulation" : "basic");
  for (const st_acc_dot1q_range_t &range : record.dot1q_ranges) out << ' ' << range;
  return out;
}

#endif
