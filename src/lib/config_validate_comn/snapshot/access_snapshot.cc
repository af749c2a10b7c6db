#include "config_validate_comn/snapshot/access_snapshot.h"

// The latest recording alone decides encap_cfg: a basic VLAN recorded after the untagged encapsulation turns it off.
std::int32_t set_vpn_access(const std::string &group, const std::string &vpn, const std::string &interface,
                            vlan_cfg_type_t source, st_acc_dot1q_range_t range, st_val_acc_dot1q_vpn_t &snapshot) {
  snapshot.index.write(group, vpn, interface, &range, source == VLAN_CFG_ENCAP, snapshot.intf_map);
  return 0;
}

void set_vpn_encap_cfg(const std::string &group, const std::string &vpn, const std::string &interface, bool encap_cfg,
                       st_val_acc_dot1q_vpn_t &snapshot) {
  snapshot.index.write(group, vpn, interface, nullptr, encap_cfg, snapshot.intf_map);
}

std::int32_t get_vpn_mop(const std::string &group, const std::string &vpn, const std::string &interface,
                         const st_val_acc_dot1q_vpn_t &snapshot) {
  return snapshot.index.find_mop({group, vpn, interface}, snapshot.mop_map);
}

void set_vpn_mop(const std::string &group, const std::string &vpn, const std::string &interface, std::int32_t mop,
                 st_val_acc_dot1q_vpn_t &snapshot) {
  snapshot.index.write_mop(group, vpn, interface, mop, snapshot.mop_map);
}

bool get_vpls_tls(const std::string &group, const std::string &vpn, const st_val_acc_dot1q_vpn_t &snapshot) {
  const auto entry = snapshot.tls_map.find({group, vpn});
  return entry != snapshot.tls_map.end() && entry->second;
}

void set_vpls_tls(const std::string &group, const std::string &vpn, std::int32_t /*tls*/,
                  st_val_acc_dot1q_vpn_t &snapshot) {
  snapshot.tls_map.try_emplace({group, vpn}, true);
}
