#include "config_validate_comn/snapshot/record_kinds.h"

#include <algorithm>

bool is_port_based(const acc_intf_vpn_info_t &record) {
  if (record.encap_cfg || record.dot1q_ranges.empty()) return false;
  return std::none_of(record.dot1q_ranges.begin(), record.dot1q_ranges.end(),
                      [](const st_acc_dot1q_range_t &range) { return range.vlan_min != 0 && range.vlan_max != 0; });
}

// (0, 0) can only stand first: one range at most has the minimum 0, and no other minimum sorts before it.
bool is_untagged(const acc_intf_vpn_info_t &record) {
  if (!record.encap_cfg || record.dot1q_ranges.empty()) return false;
  return is_without_vlan(*record.dot1q_ranges.begin());
}
