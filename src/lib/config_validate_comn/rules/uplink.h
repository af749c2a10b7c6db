#ifndef CONFIG_VALIDATE_COMN_RULES_UPLINK_H
#define CONFIG_VALIDATE_COMN_RULES_UPLINK_H

#include <cstdint>
#include <map>
#include <string>

#include "confd_dp.h"

/// VLAN of an LDP uplink -> name of the uplink's interface.
using val_ldp_uplink_map_t = std::map<std::int32_t, std::string>;

/// What an operator is warned with when a port is access interface of a VPN and member of an uplink's VLAN. Holds no
/// conversion: it is a format of its own.
constexpr const char *kVpnUplinkWarning =
    "Some MPLS VPN's have access and uplink interfaces in common. In this way those access interfaces will not be able to encapsulate MPLS traffic";

/// Adds the uplinks to the map; of two on one VLAN the first in list order names it. Empties the map when there is no
/// uplink or the count fails. Always 0. Throws std::invalid_argument or std::out_of_range on a VLAN text that is no
/// number.
std::int32_t get_ldp_uplink(std::int32_t sock, confd_trans_ctx *tctx, val_ldp_uplink_map_t &uplinks);

#endif
