#include "config_validate_comn/config_validate_comn.h"

namespace {

bool differs_somewhere(const std::string &group, const std::string &vpn, bool has_encapsulation,
                       const st_val_acc_dot1q_vpn_t &snapshot) {
  if (snapshot.index.agrees_on_encapsulation(group, vpn, has_encapsulation, snapshot.intf_map)) return false;
  const group_vpn_id_t id = make_group_vpn_id(group, vpn);
  for (const auto &[interface, records] : snapshot.intf_map) {
    const auto entry = records.find(id);
    if (entry != records.end() && entry->second.encap_cfg != has_encapsulation) return true;
  }
  return false;
}

}  // namespace

// - The first access interface of a VPN that is processed decides for the VPN; a later one that differs is rejected.
// - The interface's own flag is recorded before the comparison and stays recorded when the interface is rejected.
std::int32_t config_validate_vpn_access_encapsulation(int /*sock*/, confd_trans_ctx *tctx, std::string &interface,
                                                      std::string &group, std::string &vpn, bool has_encapsulation,
                                                      st_val_acc_dot1q_vpn_t &snapshot) {
  set_vpn_encap_cfg(group, vpn, interface, has_encapsulation, snapshot);
  if (differs_somewhere(group, vpn, has_encapsulation, snapshot)) {
    confd_trans_seterr(tctx, "%s %s: with 'bridge-domain qinq', all access interfaces must have 'encapsulation dot1q'",
                       group.c_str(), vpn.c_str());
    return CONFD_ERR;
  }
  return CONFD_OK;
}
