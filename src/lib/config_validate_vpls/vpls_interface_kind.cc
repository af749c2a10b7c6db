#include <optional>
#include <string>

#include "confd_maapi.h"
#include "config_validate_comn/daemon/guards.h"
#include "config_validate_comn/daemon/value_assert.h"
#include "config_validate_comn/rules/service_port_names.h"
#include "config_validate_vpls/config_validate_vpls.h"

namespace {

/// The access interface that a key path leads into, by bare keys.
struct access_interface_t {
  std::string interface;
  std::string vpn;
  std::string group;
};

access_interface_t read_access_interface(const confd_hkeypath_t *kp) {
  access_interface_t ac;
  ac.interface = GET_BUF(&kp->v[1][0]);
  ac.vpn = GET_BUF(&kp->v[4][0]);
  ac.group = GET_BUF(&kp->v[6][0]);
  return ac;
}

// All elements that a path can have are looked at, whatever its length: a tag beyond the end would count.
bool GetXmlTagFromKp(const confd_hkeypath_t *kp, std::uint32_t &tag) {
  for (const auto &element : kp->v) {
    if (element[0].type == C_XMLTAG) {
      tag = element[0].val.xmltag.tag;
      return true;
    }
  }
  return false;
}

// Any tag will do: a path without one is none that this validation point can be asked about.
std::int32_t check_tag(confd_trans_ctx *tctx, const confd_hkeypath_t *kp, const std::string &interface) {
  std::uint32_t tag = 0;
  if (GetXmlTagFromKp(kp, tag)) return CONFD_OK;

  confd_trans_seterr(tctx, "Cannot get information of interface %s", interface.c_str());
  return CONFD_ERR;
}

bool begins_with(const std::string &text, const std::string &prefix) {
  return text.compare(0, prefix.size(), prefix) == 0;
}

// - The walk begins at the first entry of the whole list and ends at the first of another group or VPN: it meets
//   interfaces only for the VPN that comes first in the list, and every other VPN may mix.
// - Names are compared by prefix: the path's group G1 also matches the entries of group G10.
std::optional<std::string> find_first_other_interface(maapi_cursor &mc, const access_interface_t &ac) {
  for (maapi_get_next(&mc); mc.n != 0; maapi_get_next(&mc)) {
    if (!begins_with(GET_BUF(&mc.keys[0]), ac.group)) return std::nullopt;
    if (!begins_with(GET_BUF(&mc.keys[1]), ac.vpn)) return std::nullopt;
    const std::string other = GET_BUF(&mc.keys[3]);
    if (other != ac.interface) return other;
  }
  return std::nullopt;
}

}  // namespace

// Cannot configure access interfaces service-port and ethernet in the same VPN. Only the first other interface is
// compared: in a VPN that mixes already, one of the first one's kind passes.
std::int32_t config_validate_vpls_access_interface_type(std::int32_t sock, confd_trans_ctx *tctx,
                                                        confd_hkeypath_t *kp) {
  const access_interface_t ac = read_access_interface(kp);
  if (check_tag(tctx, kp, ac.interface) == CONFD_ERR) return CONFD_ERR;

  scoped_cursor mc;
  maapi_init_cursor(sock, tctx->thandle, &mc, "/internal/int-sub-vpls-vpn-ac");
  const std::optional<std::string> other = find_first_other_interface(mc, ac);
  if (other && begins_with_service(ac.interface) != begins_with_service(*other)) {
    confd_trans_seterr(tctx, "Cannot configure access interfaces service-port and ethernet in the same VPN");
    return CONFD_ERR;
  }
  return CONFD_OK;
}

// To use a service-port as access interface, transparent-lan-service must be enabled. Only a leaf that is known to be
// absent rejects: a failed read accepts.
std::int32_t config_validate_vpls_service_port_config(std::int32_t sock, confd_trans_ctx *tctx, confd_hkeypath_t *kp) {
  const access_interface_t ac = read_access_interface(kp);
  const std::string tls_path =
      "/mpls/l2vpn-config/l2vpn/vpls-group{" + ac.group + "}/vpn{" + ac.vpn + "}/bridge-domain/transparent-lan-service";
  if (check_tag(tctx, kp, ac.interface) == CONFD_ERR) return CONFD_ERR;

  if (begins_with_service(ac.interface) && maapi_exists(sock, tctx->thandle, "%s", tls_path.c_str()) == 0) {
    confd_trans_seterr(tctx, "To use a service-port as access interface, transparent-lan-service must be enabled");
    return CONFD_ERR;
  }
  return CONFD_OK;
}
