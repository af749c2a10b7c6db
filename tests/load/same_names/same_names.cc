// Functions with names of the plug-in's: from an entry point's table down to a leaf, each of which accepts, or ends the
// process.

#include <cstdlib>
#include <string>

#include "config_validate_comn/config_validate_comn.h"
#include "config_validate_comn/daemon/path_format.h"
#include "config_validate_comn/snapshot/snapshot_queries.h"
#include "config_validate_vpn/handlers.h"
#include "config_validate_vpn/validation_points.h"

validation_handler_t find_validation_handler(const char * /*call_name*/) { return nullptr; }

std::int32_t config_validate_vpn_access(std::int32_t /*sock*/, confd_trans_ctx * /*tctx*/, confd_hkeypath_t * /*kp*/,
                                        confd_value_t * /*newval*/) {
  return CONFD_OK;
}

std::int32_t config_validate_vpn_access_dot1q(int /*sock*/, confd_trans_ctx * /*tctx*/, std::string & /*group*/,
                                              std::string & /*vpn*/, std::string & /*interface*/,
                                              st_acc_dot1q_range_t & /*range*/, st_val_acc_dot1q_vpn_t & /*snapshot*/,
                                              en_vpn_match_type_t /*match*/) {
  return CONFD_OK;
}

bool has_vpn_dot1q_range_overlap(const std::string & /*interface*/, st_acc_dot1q_range_t /*range*/,
                                 const st_val_acc_dot1q_vpn_t & /*snapshot*/, group_vpn_id_t & /*other*/) {
  return false;
}

std::string format_path(const char * /*format*/, ...) { std::abort(); }

bool operator<(const group_vpn_id_t & /*a*/, const group_vpn_id_t & /*b*/) { std::abort(); }
