#include <exception>
#include <optional>
#include <sstream>
#include <string>

#include "confd_maapi.h"
#include "config_validate_comn/daemon/value_assert.h"
#include "config_validate_comn/rules/service_port_names.h"
#include "config_validate_vpws/config_validate_vpws.h"

namespace {

// What stands after the last "-". A "-" at the end of the name has nothing after it and does not count.
std::string get_last_piece(const std::string &interface) {
  std::istringstream pieces(interface);
  std::string piece;
  std::string last;
  while (std::getline(pieces, piece, '-')) last = piece;
  return last;
}

// The conversion skips leading blanks and stops at the first non-digit: service-port-12abc is service port 12.
std::optional<int> get_service_port_number(const std::string &interface) {
  try {
    return std::stoi(get_last_piece(interface));
  } catch (const std::exception &) {
    return std::nullopt;
  }
}

// Any answer but 0 counts as a VLAN action, so a failed read rejects: a port that may have one is kept out of the VPN.
// The number goes into the path as unsigned: a negative one becomes a large one.
bool has_vlan_action(std::int32_t sock, confd_trans_ctx *tctx, int number) {
  const auto port = static_cast<unsigned>(number);
  return maapi_exists(sock, tctx->thandle, "/base:config/service-port{%u}/match/vlan/vlan-id/vid", port) != 0 ||
         maapi_exists(sock, tctx->thandle, "/base:config/service-port{%u}/match/vlan/vlan-id/any", port) != 0;
}

}  // namespace

// - An interface that is no service port passes unread.
// - Service-port with VLAN action not allowed on a VPN.
std::int32_t config_validate_vpws_service_port(std::int32_t sock, confd_trans_ctx *tctx, confd_hkeypath_t *kp,
                                               confd_value_t * /*newval*/) {
  const std::string interface = GET_BUF(&kp->v[0][0]);
  if (!holds_service_port(interface)) return CONFD_OK;

  const std::optional<int> number = get_service_port_number(interface);
  if (!number) {
    confd_trans_seterr(tctx, "%s is not valid. Verify available service-port interfaces", interface.c_str());
    return CONFD_ERR;
  }
  if (has_vlan_action(sock, tctx, *number)) {
    confd_trans_seterr(tctx, "Service-port with VLAN action not allowed on a VPN");
    return CONFD_ERR;
  }
  return CONFD_OK;
}
