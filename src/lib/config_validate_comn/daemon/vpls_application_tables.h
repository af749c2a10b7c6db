#ifndef CONFIG_VALIDATE_COMN_DAEMON_VPLS_APPLICATION_TABLES_H
#define CONFIG_VALIDATE_COMN_DAEMON_VPLS_APPLICATION_TABLES_H

// Readers of the tree that the VPLS application keeps of its VPNs. Group and VPN are bare keys, without keyword.

#include <cstdint>
#include <string>

#include "confd_dp.h"

/// Value of a bridge domain's int-vpls-bd-tls that says off; every other says on.
constexpr std::int32_t kVplsTlsOff = 2;

/// The identifier under which the application keeps the VPN: the lowest above 0, or 0 when the VPN has none.
std::uint32_t get_int_vpls_id(int sock, confd_trans_ctx *tctx, const std::string &group, const std::string &vpn);

/// Whether the VPN's bridge domain has transparent-LAN-service; a failed read says no. Kept for callers outside the
/// library: the rules ask the snapshot.
bool get_vpls_tls(int sock, confd_trans_ctx *tctx, const std::string &group, const std::string &vpn);

#endif
