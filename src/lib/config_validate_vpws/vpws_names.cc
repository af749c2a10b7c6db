#include <string>

#include "confd_maapi.h"
#include "config_validate_comn/daemon/guards.h"
#include "config_validate_comn/daemon/value_assert.h"
#include "config_validate_vpws/config_validate_vpws.h"

namespace {

constexpr char kAllowedCharacters[] = "0123456789abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ-_@<>&=:.+()";

// Values read of each VPN: its name, the only one that owns memory, and its id, which the rule does not look at.
using vpn_batch_t = scoped_batch<2, 1>;

bool is_valid_name(const std::string &name) { return name.find_first_not_of(kAllowedCharacters) == std::string::npos; }

// `whose` is "VPWS Group name <group>", or that and " VPN name <vpn>".
std::int32_t reject_name(confd_trans_ctx *tctx, const std::string &whose) {
  const std::string message =
      whose + " contains invalid characters (allowed characters: 0-9, a-z, A-Z, _, -, @, <>, &, =, :, ., (), +)";
  confd_trans_seterr(tctx, "%s", message.c_str());
  return CONFD_ERR;
}

std::int32_t check_vpn_name(confd_trans_ctx *tctx, const std::string &group, const std::string &vpn) {
  if (!is_valid_name(vpn)) return reject_name(tctx, "VPWS Group name " + group + " VPN name " + vpn);
  return CONFD_OK;
}

std::int32_t check_vpn_names(confd_trans_ctx *tctx, const std::string &group, const vpn_batch_t &batch) {
  for (int i = 0; i < batch.count(); ++i) {
    const confd_value_t *values = batch.entry(i);
    if (check_vpn_name(tctx, group, GET_BUF(&values[0])) == CONFD_ERR) return CONFD_ERR;
  }
  return CONFD_OK;
}

}  // namespace

// - Every group's name is checked before its VPNs' names, and these before the next group.
// - The first invalid name ends the check.
std::int32_t config_validate_vpws_group_name(std::int32_t sock, confd_trans_ctx *tctx, confd_hkeypath_t * /*kp*/,
                                             confd_value_t * /*newval*/) {
  scoped_cursor mc;
  maapi_init_cursor(sock, tctx->thandle, &mc, "/internal/int-vpws-group");
  for (maapi_get_next(&mc); mc.n != 0; maapi_get_next(&mc)) {
    const std::string group = GET_BUF(&mc.keys[0]);
    if (!is_valid_name(group)) return reject_name(tctx, "VPWS Group name " + group);
    if (config_validate_vpws_vpn_name(sock, tctx, group) == CONFD_ERR) return CONFD_ERR;
  }
  return CONFD_OK;
}

// A failed read ends the list, so that the VPNs not read are accepted.
std::int32_t config_validate_vpws_vpn_name(std::int32_t sock, confd_trans_ctx *tctx, const std::string &group) {
  scoped_cursor mc;
  maapi_init_cursor(sock, tctx->thandle, &mc, "/internal/int-vpws-group{%s}/int-vpws", group.c_str());
  do {
    vpn_batch_t batch({0});
    if (!batch.fetch(mc)) break;
    if (check_vpn_names(tctx, group, batch) == CONFD_ERR) return CONFD_ERR;
  } while (mc.n != 0);
  return CONFD_OK;
}

// Ids start at 1, so the entry after (name, 0) is the VPN's own, the one with the lowest id if there were several.
std::uint32_t get_int_vpws_id(std::int32_t sock, confd_trans_ctx *tctx, const std::string &group,
                              const std::string &vpn) {
  scoped_cursor mc;
  maapi_init_cursor(sock, tctx->thandle, &mc, "/internal/int-vpws-group{%s}/int-vpws", group.c_str());

  std::string name = vpn;
  confd_value_t keys[2]{};
  keys[0].type = C_BUF;
  keys[0].val.buf = {static_cast<unsigned>(name.size()), reinterpret_cast<unsigned char *>(name.data())};
  keys[1].type = C_UINT32;
  keys[1].val.u32 = 0;
  maapi_find_next(&mc, CONFD_FIND_NEXT, keys, 2);

  if (mc.n == 0 || GET_BUF(&mc.keys[0]) != vpn) return 0;
  return GET_UINT32(&mc.keys[1]);
}
