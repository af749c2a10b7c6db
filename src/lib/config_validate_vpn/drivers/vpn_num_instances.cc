#include "config_validate_vpn/drivers/vpn_num_instances.h"

#include "confd_maapi.h"

std::int32_t get_vpn_num_instances(std::int32_t sock, confd_trans_ctx *tctx, vpn_app::VpnType type) {
  switch (type) {
    case vpn_app::Vpls:
      return maapi_num_instances(sock, tctx->thandle, "/KZ-VPLS-MIB:KZ-VPLS-MIB/vplsConfigTable/vplsConfigEntry");
    case vpn_app::Vpws:
      return maapi_num_instances(sock, tctx->thandle, "/KZ-VPWS-MIB:KZ-VPWS-MIB/vpwsConfigTable/vpwsConfigEntry");
  }
  return 0;
}
