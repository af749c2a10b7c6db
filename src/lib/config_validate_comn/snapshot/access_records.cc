#include "config_validate_comn/snapshot/access_records.h"

#include <tuple>
#include <utility>

#include "config_validate_comn/snapshot/vpn_names.h"

// The right-hand range gives its minimum twice.
bool operator<(const st_acc_dot1q_range_t &a, const st_acc_dot1q_range_t &b) {
  return std::make_pair(a.vlan_min, a.vlan_max) < std::make_pair(b.vlan_min, b.vlan_min);
}

bool is_without_vlan(const st_acc_dot1q_range_t &range) { return range.vlan_min == 0 && range.vlan_max == 0; }

// Each text is compared once, for the maps do little else.
bool operator<(const group_vpn_id_t &a, const group_vpn_id_t &b) {
  const int groups = a.group_name.compare(b.group_name);
  if (groups != 0) return groups < 0;
  const int vpns = a.vpn_name.compare(b.vpn_name);
  if (vpns != 0) return vpns < 0;
  return a.vpn_type < b.vpn_type;
}

bool operator==(const group_vpn_id_t &a, const group_vpn_id_t &b) {
  return std::tie(a.group_name, a.vpn_name, a.vpn_type) == std::tie(b.group_name, b.vpn_name, b.vpn_type);
}

bool operator!=(const group_vpn_id_t &a, const group_vpn_id_t &b) { return !(a == b); }

group_vpn_id_t make_group_vpn_id(const std::string &group, const std::string &vpn) {
  return {group, vpn, is_vpls_group(group) ? VPN_TYPE_VPLS : VPN_TYPE_VPWS};
}
