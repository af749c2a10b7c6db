#ifndef CONFIG_VALIDATE_VPN_DRIVERS_VPN_PEER_H
#define CONFIG_VALIDATE_VPN_DRIVERS_VPN_PEER_H

#include <cstdint>

#include "confd_dp.h"
#include "config_validate_vpn/shared/pseudowire_map.h"

// The steps of config_validate_vpn_peer that concern both families, in the order in which they run.

/// The element has at most 1024 pseudowires. 0, or -1 with the message set; a failed count accepts.
std::int32_t config_validate_pw_overflow(std::int32_t sock, confd_trans_ctx *tctx);

/// No pseudowire of the transaction takes over a pw-id that the running configuration has towards its neighbour. 0, or
/// -1 with the message set. When all pass, both configurations' pseudowires have been written to the trace.
std::int32_t config_validate_peer_exchange(std::int32_t sock, confd_trans_ctx *tctx, const val_pw_map_t &committing);

#endif
