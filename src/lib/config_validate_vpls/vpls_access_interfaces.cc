#include "confd_maapi.h"
#include "config_validate_comn/config_validate_comn.h"
#include "config_validate_comn/daemon/guards.h"
#include "config_validate_comn/daemon/model_tags.h"
#include "config_validate_comn/daemon/value_assert.h"
#include "config_validate_comn/daemon/vpls_application_tables.h"
#include "config_validate_comn/rules/access_interface_checks.h"
#include "config_validate_comn/snapshot/snapshot_loading.h"
#include "config_validate_comn/snapshot/snapshot_queries.h"
#include "config_validate_comn/snapshot/vpn_names.h"
#include "config_validate_vpls/config_validate_vpls.h"
#include "config_validate_vpls/vpls_access_checks.h"

namespace {

struct bridge_domain_t {
  std::uint32_t vlan = 0;
  std::int32_t tls = kVplsTlsOff;
};

// The types alone decide what was read: a failed read leaves both unset, and the VPN then has no VLAN and the service
// off. The path has the id as a signed number: nothing is found for an id from 2^31 on, which the application does not
// reach.
bridge_domain_t read_bridge_domain(std::int32_t sock, confd_trans_ctx *tctx, const std::string &group,
                                   const std::string &vpn, std::uint32_t vpn_id) {
  scoped_object<2> values;
  maapi_get_object(sock, tctx->thandle, values.data(), 2,
                   "/internal/int-vpls-group{%s}/int-vpls-vpn{%s %d}/int-vpls-bd", group.c_str(), vpn.c_str(),
                   static_cast<std::int32_t>(vpn_id));

  bridge_domain_t bridge_domain;
  if (values[0].type == C_UINT32) bridge_domain.vlan = values[0].val.u32;
  if (values[1].type == C_ENUM_VALUE) bridge_domain.tls = values[1].val.enumvalue;
  return bridge_domain;
}

/// The names of an entry's VPN. The entries of a VPN stand together in the list, so that one is kept from entry to
/// entry.
struct vpn_texts_t {
  std::string group_key;
  std::string vpn_key;
  std::string group;               ///< with its prefix
  std::string vpn;                 ///< with its prefix
  std::string bridge_domain_path;  ///< in the operator's tree; the same for every interface
};

void name_vpn_of(const maapi_cursor &mc, vpn_texts_t &names) {
  const std::string_view group_key = GET_BUF_VIEW(&mc.keys[0]);
  const std::string_view vpn_key = GET_BUF_VIEW(&mc.keys[1]);
  if (!names.bridge_domain_path.empty() && names.vpn_key == vpn_key && names.group_key == group_key) return;

  constexpr auto tag = static_cast<std::int32_t>(model_tag::bridge_domain);
  names.group_key = group_key;
  names.vpn_key = vpn_key;
  names.group = kVplsGroupPrefix + names.group_key;
  names.vpn = kVpnPrefix + names.vpn_key;
  names.bridge_domain_path = build_vpn_access_config_path(tag, names.group, names.vpn, {});
}

/// One entry of the walked list and what else was read for it.
struct walked_attachment_t {
  vpn_texts_t &names;
  std::string interface;
  std::uint32_t vpn_id = 0;
  bridge_domain_t bridge_domain{};
  std::int32_t mop = 0;
};

/// Records what the transaction does to the VPN's bridge domain as the attachment's change, and returns it.
std::int32_t record_change(std::int32_t sock, confd_trans_ctx *tctx, const walked_attachment_t &a,
                           st_val_acc_dot1q_vpn_t &snapshot) {
  const std::int32_t mop = get_vpn_mop(sock, tctx, a.names.bridge_domain_path);
  if (mop != 0) set_vpn_mop(a.names.group, a.names.vpn, a.interface, mop, snapshot);
  return mop;
}

// The agreement of the VPN's interfaces records only whether this one has an encapsulation; its VLANs are recorded by
// the encapsulation check, after the rules that compare them with what is recorded already.
std::int32_t check_claims(std::int32_t sock, confd_trans_ctx *tctx, const maapi_cursor &mc, walked_attachment_t &a,
                          st_val_acc_dot1q_vpn_t &snapshot, std::unordered_map<std::string, bool> &service_ports) {
  const bool has_untagged = vpls_has_encapsulation_untagged(sock, tctx, mc);
  const bool has_dot1q = vpls_has_encapsulation_dot1q(sock, tctx, mc);
  const bool has_encap = has_untagged || has_dot1q;
  const std::uint32_t vlan = a.bridge_domain.vlan;
  std::string &group = a.names.group;
  std::string &vpn = a.names.vpn;
  const bool is_port_based = is_interface_vpn_port_based_through_basic_info(vlan, has_encap);
  const en_vpn_match_type_t match = is_port_based ? VPN_MATCH_PORT_BASED : VPN_MATCH_DOT1Q;
  st_acc_dot1q_range_t range{vlan, vlan};

  if (config_validate_vpn_access_encapsulation(sock, tctx, a.interface, group, vpn, has_encap, snapshot) != CONFD_OK) {
    return CONFD_ERR;
  }
  if (config_validate_vpls_access_vlm(sock, tctx, group, vpn, a.interface, range, a.mop, match, true) == CONFD_ERR) {
    return CONFD_ERR;
  }
  if (config_validate_vpn_access_dot1q(sock, tctx, group, vpn, a.interface, range, snapshot, match) == CONFD_ERR) {
    return CONFD_ERR;
  }
  if (config_validate_vpls_access_encap(sock, tctx, group, vpn, a.vpn_id, a.interface, vlan, has_untagged, has_dot1q,
                                        snapshot) == CONFD_ERR) {
    return CONFD_ERR;
  }
  return check_service_port_usage(tctx, a.interface, service_ports, match);
}

std::int32_t check_access_interface(std::int32_t sock, confd_trans_ctx *tctx, const maapi_cursor &mc,
                                    st_val_acc_dot1q_vpn_t &snapshot, std::int32_t maximum,
                                    std::unordered_map<std::string, bool> &service_ports, vpn_texts_t &names) {
  name_vpn_of(mc, names);
  walked_attachment_t a{names, GET_BUF(&mc.keys[3])};
  if (check_interface_name(tctx, names.group, names.vpn, a.interface) != CONFD_OK) return CONFD_ERR;

  a.vpn_id = GET_UINT32(&mc.keys[2]);
  if (config_validate_vpls_max_access_interfaces(sock, tctx, names.group_key.c_str(), names.vpn_key.c_str(), a.vpn_id,
                                                 maximum)) {
    return CONFD_ERR;
  }

  a.bridge_domain = read_bridge_domain(sock, tctx, names.group_key, names.vpn_key, a.vpn_id);
  if (a.bridge_domain.tls != kVplsTlsOff) set_vpls_tls(names.group, names.vpn, a.bridge_domain.tls, snapshot);
  a.mop = record_change(sock, tctx, a, snapshot);
  return check_claims(sock, tctx, mc, a, snapshot, service_ports);
}

}  // namespace

// Interface by interface, the first failing rule decides the message:
// - The element has the interface.
// - The VPN has no more access interfaces than the card allows.
// - All access interfaces of the VPN have an encapsulation or none has.
// - A changed attachment is no multicast router interface, and its VLAN is no static member's.
// - Its VLAN, and then its encapsulation, is no other VPN's.
// - A service port is used by one VPN, or VLAN-based by all.
std::int32_t config_validate_vpls_access_dot1q(std::int32_t sock, confd_trans_ctx *tctx,
                                               st_val_acc_dot1q_vpn_t &snapshot, std::int32_t maximum,
                                               std::unordered_map<std::string, bool> &service_ports) {
  vpn_texts_t names;
  scoped_cursor mc;
  maapi_init_cursor(sock, tctx->thandle, &mc, "/internal/int-sub-vpls-vpn-ac");
  for (maapi_get_next(&mc); mc.n != 0; maapi_get_next(&mc)) {
    if (check_access_interface(sock, tctx, mc, snapshot, maximum, service_ports, names) != CONFD_OK) return CONFD_ERR;
  }
  return CONFD_OK;
}
