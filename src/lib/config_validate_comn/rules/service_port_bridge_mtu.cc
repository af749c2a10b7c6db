#include "config_validate_comn/rules/service_port_bridge_mtu.h"

#include <utility>

#include "confd_maapi.h"
#include "config_validate_comn/config_validate_comn.h"
#include "config_validate_comn/daemon/path_format.h"
#include "config_validate_comn/daemon/value_assert.h"
#include "config_validate_comn/daemon/vpls_application_tables.h"
#include "config_validate_comn/rules/service_port_names.h"
#include "config_validate_comn/snapshot/vpn_names.h"
#include "config_validate_vpn/shared/validation_keepalive.h"

namespace {

constexpr std::uint32_t kMaxBridgeMtu = 2000;

bool begins_with_vpls_group(const std::string &group) {
  constexpr std::string_view kVplsGroup = "vpls-group";
  return std::string_view(group).substr(0, kVplsGroup.size()) == kVplsGroup;
}

// A bridge domain without an MTU is refused as one with too large an MTU: nothing keeps it within the limit. Any other
// failed read lets the VPN pass.
bool has_bridge_mtu_above_limit(int sock, confd_trans_ctx *tctx, const std::string &group, const std::string &vpn) {
  const std::string path = build_low_level_vpls_vpn_bd_mtu_path(sock, tctx, group, vpn);
  confd_value_t v{};  // asserted to be a number, which owns nothing to free
  if (maapi_get_elem(sock, tctx->thandle, &v, "%s", path.c_str()) == CONFD_OK) return GET_UINT32(&v) > kMaxBridgeMtu;
  return confd_errno == CONFD_ERR_NOEXISTS;
}

}  // namespace

std::string build_low_level_vpls_vpn_bd_mtu_path(int sock, confd_trans_ctx *tctx, const std::string &group,
                                                 const std::string &vpn) {
  const std::string group_key = bare_group_name(group);
  const std::string vpn_key = bare_vpn_name(vpn);
  const std::uint32_t id = get_int_vpls_id(sock, tctx, group_key, vpn_key);
  return format_path("/internal/int-vpls-group{%s}/int-vpls-vpn{%s %u}/int-vpls-bd/int-vpls-bd-mtu", group_key.c_str(),
                     vpn_key.c_str(), id);
}

// - Only attachments that the transaction changes are looked at: the snapshot holds a change for no other.
// - A VPLS VPN with a service port keeps its bridge MTU at 2000 or below. A service port is an interface whose name
//   begins so; a name that holds the word further on is none here, although the rule on mixed uses takes it for one.
// - A VPN's MTU is read once, at its first service port: changes stand in order of group, VPN and interface.
std::int32_t config_validate_vpn_access_sp_bd_mtu(int sock, confd_trans_ctx *tctx, st_val_acc_dot1q_vpn_t &snapshot) {
  std::pair<std::string, std::string> accepted;
  for (const auto &[attachment, change] : snapshot.mop_map) {
    const auto &[group, vpn, interface] = attachment;
    if (group == accepted.first && vpn == accepted.second) continue;
    if (!begins_with_vpls_group(group) || !begins_with_service_port(interface)) continue;
    if (has_bridge_mtu_above_limit(sock, tctx, group, vpn)) {
      confd_trans_seterr(
          tctx,
          "%s %s access-interface %s : VPLS VPN assigned to a service-port must have its bridge MTU lesser or equal than %u.",
          group.c_str(), vpn.c_str(), interface.c_str(), kMaxBridgeMtu);
      return CONFD_ERR;
    }
    accepted = {group, vpn};
    validation_keepalive(tctx);
  }
  return CONFD_OK;
}
