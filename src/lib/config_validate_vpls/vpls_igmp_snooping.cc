#include "config_validate_comn/daemon/guards.h"
#include "config_validate_comn/daemon/interface_identifiers.h"
#include "config_validate_comn/daemon/value_assert.h"
#include "config_validate_vpls/vpls_access_checks.h"

namespace {

// Keys of an entry: the snooping instance and the ifindex, both C_INT32.
constexpr const char *kRouterInterfaces =
    "/KZ-MGMD-ROUTER-MIB:KZ-MGMD-ROUTER-MIB/mgmdRouterInterfaceTable/mgmdRouterInterfaceEntry";

}  // namespace

// - Without a multicast router interface the element does no snooping: accepted without further reading.
// - The port must not be an interface of the multicast router. A failed fetch ends the search and accepts.
std::int32_t config_validate_vpls_access_igs(std::int32_t sock, confd_trans_ctx *tctx, const std::string &group,
                                             const std::string &vpn, const std::string &interface) {
  if (maapi_num_instances(sock, tctx->thandle, kRouterInterfaces) <= 0) return CONFD_OK;
  const std::int32_t ifindex = get_ifindex_by_limid(get_limid_by_intf_name(interface));

  scoped_cursor mc;
  maapi_init_cursor(sock, tctx->thandle, &mc, kRouterInterfaces);
  do {
    scoped_batch<2, 0> batch({});
    if (!batch.fetch(mc)) return CONFD_OK;
    for (int i = 0; i < batch.count(); ++i) {
      const confd_value_t *v = batch.entry(i);
      if (GET_INT32(&v[1]) != ifindex) continue;
      confd_trans_seterr(tctx, "%s %s interface %s is already assigned to multicast igmp snooping %d", group.c_str(),
                         vpn.c_str(), interface.c_str(), GET_INT32(&v[0]));
      return CONFD_ERR;
    }
  } while (mc.n != 0);
  return CONFD_OK;
}
