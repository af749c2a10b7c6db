#include <string>

#include "confd_maapi.h"
#include "config_validate_comn/daemon/path_format.h"
#include "config_validate_comn/daemon/value_assert.h"
#include "config_validate_comn/rules/pseudowire_rules.h"
#include "config_validate_vpls/config_validate_vpls.h"
#include "config_validate_vpls/qnconfd_cdb_session.h"

namespace {

st_peer_info_t read_vpls_neighbor(const confd_value_t *values) {
  st_peer_info_t pw;
  pw.group_name = GET_BUF(&values[0]);
  pw.vpn_name = GET_BUF(&values[1]);
  pw.peer_addr = GET_IPV4(&values[3]);
  pw.pw_id = GET_UINT32(&values[5]);
  return pw;
}

constexpr pw_list_t kVplsNeighbors{"/internal/int-sub-vpls-vpn-nbr", {0, 1}, read_vpls_neighbor};

// The leaf has a single value, so the first change reported is the only one to look at.
confd_iter_ret vpls_vpn_peer_iter(confd_hkeypath_t *kp, confd_iter_op op, confd_value_t * /*oldv*/, confd_value_t *newv,
                                  void *state) {
  if (is_pw_id_set(kp, op, newv)) *static_cast<std::uint32_t *>(state) = GET_UINT32(newv);
  return ITER_STOP;
}

}  // namespace

std::int32_t config_validate_vpls_unique_pw_id(std::int32_t sock, confd_trans_ctx *tctx, val_pw_map_t &committing) {
  return add_committing_pws(sock, tctx, kVplsNeighbors, committing);
}

std::int32_t fill_config_vpls_peer_running(std::int32_t /*sock*/, confd_trans_ctx *tctx, val_pw_map_t &running) {
  const QnConfdCdbSession session(qnconfd_instance_get(tctx->vcb_opaque), CDB_RUNNING);
  add_running_pws(session.Socket(), kVplsNeighbors, running);
  return CONFD_OK;
}

// - Only a pw-id that the transaction changes counts; the one that the pseudowire carries is not looked at.
// - Without a change pw-id 0 is looked up: that rejects a pseudowire towards a neighbour that has a running pseudowire
//   with pw-id 0.
std::int32_t config_validate_vpls_pw_id_exchange(std::int32_t sock, confd_trans_ctx *tctx, const val_pw_map_t &running,
                                                 const st_peer_info_t &pw) {
  std::uint32_t new_pw_id = 0;
  const std::string path =
      format_path("/mpls/l2-vpn:l2vpn-config/l2vpn/mpls-l2vpn-vpls:vpls-group{%s}/vpn{%s}/vfi/neighbor{%s}",
                  pw.group_name.c_str(), pw.vpn_name.c_str(), get_peer_text(pw.peer_addr).c_str());
  maapi_keypath_diff_iterate(sock, tctx->thandle, vpls_vpn_peer_iter, 0, &new_pw_id, "%s/pw-id", path.c_str());
  return config_validate_pw_id_not_assigned(tctx, running, pw.peer_addr, new_pw_id);
}
