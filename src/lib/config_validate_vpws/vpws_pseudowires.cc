#include <string>

#include "confd_maapi.h"
#include "config_validate_comn/daemon/path_format.h"
#include "config_validate_comn/daemon/value_assert.h"
#include "config_validate_comn/rules/pseudowire_rules.h"
#include "config_validate_vpls/qnconfd_cdb_session.h"
#include "config_validate_vpws/config_validate_vpws.h"

namespace {

// The peer is a number whose bytes in memory are the address in network byte order, as a VPLS neighbour's address is:
// one neighbour has one key in both families.
st_peer_info_t read_vpws_tunnel(const confd_value_t *values) {
  st_peer_info_t pw;
  pw.peer_addr = GET_UINT32(&values[2]);
  pw.pw_id = GET_UINT32(&values[3]);
  pw.group_name = GET_BUF(&values[0]);
  pw.vpn_name = GET_BUF(&values[5]);
  return pw;
}

constexpr pw_list_t kVpwsTunnels{"/internal/int-vpws-tunnel-idx", {0, 5}, read_vpws_tunnel};

// Two iterators that do the same, so that an assertion tells which kind of neighbour has the broken value. The leaf has
// a single value, so the first change reported is the only one to look at.
confd_iter_ret vpws_vpn_peer_iter(confd_hkeypath_t *kp, confd_iter_op op, confd_value_t * /*oldv*/, confd_value_t *newv,
                                  void *state) {
  if (is_pw_id_set(kp, op, newv)) *static_cast<std::uint32_t *>(state) = GET_UINT32(newv);
  return ITER_STOP;
}

confd_iter_ret vpws_vpn_bkp_peer_iter(confd_hkeypath_t *kp, confd_iter_op op, confd_value_t * /*oldv*/,
                                      confd_value_t *newv, void *state) {
  if (is_pw_id_set(kp, op, newv)) *static_cast<std::uint32_t *>(state) = GET_UINT32(newv);
  return ITER_STOP;
}

}  // namespace

std::int32_t config_validate_vpws_unique_pw_id(std::int32_t sock, confd_trans_ctx *tctx, val_pw_map_t &committing) {
  return add_committing_pws(sock, tctx, kVpwsTunnels, committing);
}

std::int32_t fill_config_vpws_peer_running(std::int32_t /*sock*/, confd_trans_ctx *tctx, val_pw_map_t &running) {
  const QnConfdCdbSession session(qnconfd_instance_get(tctx->vcb_opaque), CDB_RUNNING);
  add_running_pws(session.Socket(), kVpwsTunnels, running);
  return CONFD_OK;
}

// - Only a pw-id that the transaction changes counts, and whoever owns it in the running configuration, the very same
//   neighbour of the same VPN included.
// - Without a change pw-id 0 is looked up: that rejects a pseudowire towards a neighbour that has a running pseudowire
//   with pw-id 0.
// - The neighbour's new pw-id is not reset before the backup neighbour is looked at. It was free a moment ago, so
//   looking it up again finds nothing when the backup neighbour has no change of its own.
std::int32_t config_validate_vpws_pw_id_exchange(std::int32_t sock, confd_trans_ctx *tctx, const val_pw_map_t &running,
                                                 const st_peer_info_t &pw) {
  std::uint32_t new_pw_id = 0;
  const std::string peer = get_peer_text(pw.peer_addr);

  const std::string neighbor = format_path("/mpls/l2-vpn:l2vpn-config/l2vpn/vpws-group{%s}/vpn{%s}/neighbor{%s}",
                                           pw.group_name.c_str(), pw.vpn_name.c_str(), peer.c_str());
  maapi_keypath_diff_iterate(sock, tctx->thandle, vpws_vpn_peer_iter, 0, &new_pw_id, "%s/pw-id", neighbor.c_str());
  if (config_validate_pw_id_not_assigned(tctx, running, pw.peer_addr, new_pw_id) == CONFD_ERR) return CONFD_ERR;

  const std::string backup = format_path("/mpls/l2-vpn:l2vpn-config/l2vpn/vpws-group{%s}/vpn{%s}/backup-neighbor{%s}",
                                         pw.group_name.c_str(), pw.vpn_name.c_str(), peer.c_str());
  maapi_keypath_diff_iterate(sock, tctx->thandle, vpws_vpn_bkp_peer_iter, 0, &new_pw_id, "%s/pw-id", backup.c_str());
  return config_validate_pw_id_not_assigned(tctx, running, pw.peer_addr, new_pw_id);
}
