// Rules that are still to come: each accepts, so that its validation point lets every commit through.

#include "config_validate_vpls/config_validate_vpls.h"
#include "config_validate_vpn/handlers.h"
#include "config_validate_vpws/config_validate_vpws.h"

std::int32_t config_validate_vpn_peer(std::int32_t, confd_trans_ctx *, confd_hkeypath_t *, confd_value_t *) {
  return CONFD_OK;
}

std::int32_t config_validate_vlm(std::int32_t, confd_trans_ctx *, confd_hkeypath_t *, confd_value_t *) {
  return CONFD_OK;
}

std::int32_t config_validate_vpls_access_interface_type(std::int32_t, confd_trans_ctx *, confd_hkeypath_t *) {
  return CONFD_OK;
}

std::int32_t config_validate_vpls_service_port_config(std::int32_t, confd_trans_ctx *, confd_hkeypath_t *) {
  return CONFD_OK;
}

std::int32_t config_validate_vpws_group_name(std::int32_t, confd_trans_ctx *, confd_hkeypath_t *, confd_value_t *) {
  return CONFD_OK;
}

std::int32_t config_validate_vpws_service_port(std::int32_t, confd_trans_ctx *, confd_hkeypath_t *, confd_value_t *) {
  return CONFD_OK;
}
