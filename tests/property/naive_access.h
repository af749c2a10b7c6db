#ifndef TESTS_PROPERTY_NAIVE_ACCESS_H
#define TESTS_PROPERTY_NAIVE_ACCESS_H

#include <optional>
#include <string>

#include "config_validate_comn/snapshot/access_snapshot.h"

/// The snapshot's questions answered by walking its maps and nothing else; an answer names the first VPN in key order.
namespace naive {

using answer_t = std::optional<group_vpn_id_t>;

/// Compares VLAN by VLAN.
bool share_a_vlan(const st_acc_dot1q_range_t &a, const st_acc_dot1q_range_t &b);

bool is_port_based(const acc_intf_vpn_info_t &record);
bool is_untagged(const acc_intf_vpn_info_t &record);

answer_t overlapping_vpn(const std::string &interface, const st_acc_dot1q_range_t &range,
                         const st_val_acc_dot1q_vpn_t &snapshot);
answer_t port_based_vpn(const std::string &interface, const st_val_acc_dot1q_vpn_t &snapshot);
answer_t modified_port_based_vpn(const std::string &interface, const st_val_acc_dot1q_vpn_t &snapshot);
answer_t untagged_vpn(const std::string &interface, const st_val_acc_dot1q_vpn_t &snapshot);
bool has_vlan_based_vpn(const std::string &interface, const st_val_acc_dot1q_vpn_t &snapshot);
bool has_encapsulation(const st_val_acc_dot1q_vpn_t &snapshot);
bool has_modified_port_based_vpn(const st_val_acc_dot1q_vpn_t &snapshot);

/// Whether an interface holds the VPN with another encap_cfg.
bool disagrees_on_encapsulation(const group_vpn_id_t &vpn, bool encap_cfg, const st_val_acc_dot1q_vpn_t &snapshot);

}  // namespace naive

#endif
