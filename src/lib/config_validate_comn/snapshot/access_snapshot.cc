#include "config_validate_comn/snapshot/access_snapshot.h"

namespace {

void write_record(const std::string &group, const std::string &vpn, const std::string &interface,
                  const st_acc_dot1q_range_t *range, bool encap_cfg, st_val_acc_dot1q_vpn_t &snapshot) {
  const group_vpn_id_t vpn_id = make_group_vpn_id(group, vpn);
  const auto [port, is_new_interface] = snapshot.intf_map.try_emplace(interface);
  const auto [entry, is_new_record] = port->second.try_emplace(vpn_id);
  acc_intf_vpn_info_t &record = entry->second;

  const bool had_encap_cfg = record.encap_cfg;
  const bool is_new_range = range != nullptr && record.dot1q_ranges.insert(*range).second;
  record.encap_cfg = encap_cfg;

  snapshot.index.recorded({interface, port->second, vpn_id, record, is_new_interface, is_new_record, had_encap_cfg,
                           is_new_range ? range : nullptr},
                          snapshot.intf_map);
}

}  // namespace

// The latest recording alone decides encap_cfg: a basic VLAN recorded after the untagged encapsulation turns it off.
std::int32_t set_vpn_access(const std::string &group, const std::string &vpn, const std::string &interface,
                            vlan_cfg_type_t source, st_acc_dot1q_range_t range, st_val_acc_dot1q_vpn_t &snapshot) {
  write_record(group, vpn, interface, &range, source == VLAN_CFG_ENCAP, snapshot);
  return 0;
}

void set_vpn_encap_cfg(const std::string &group, const std::string &vpn, const std::string &interface, bool encap_cfg,
                       st_val_acc_dot1q_vpn_t &snapshot) {
  write_record(group, vpn, interface, nullptr, encap_cfg, snapshot);
}

std::int32_t get_vpn_mop(const std::string &group, const std::string &vpn, const std::string &interface,
                         const st_val_acc_dot1q_vpn_t &snapshot) {
  const auto entry = snapshot.mop_map.find({group, vpn, interface});
  return entry == snapshot.mop_map.end() ? 0 : entry->second;
}

void set_vpn_mop(const std::string &group, const std::string &vpn, const std::string &interface, std::int32_t mop,
                 st_val_acc_dot1q_vpn_t &snapshot) {
  snapshot.mop_map.try_emplace({group, vpn, interface}, mop);
}

bool get_vpls_tls(const std::string &group, const std::string &vpn, const st_val_acc_dot1q_vpn_t &snapshot) {
  const auto entry = snapshot.tls_map.find({group, vpn});
  return entry != snapshot.tls_map.end() && entry->second;
}

void set_vpls_tls(const std::string &group, const std::string &vpn, std::int32_t /*tls*/,
                  st_val_acc_dot1q_vpn_t &snapshot) {
  snapshot.tls_map.try_emplace({group, vpn}, true);
}
