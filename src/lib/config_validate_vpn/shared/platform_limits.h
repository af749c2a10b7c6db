#ifndef CONFIG_VALIDATE_VPN_SHARED_PLATFORM_LIMITS_H
#define CONFIG_VALIDATE_VPN_SHARED_PLATFORM_LIMITS_H

#include <cstdint>

/// Stands for a limit that has not been read. As a signed number it is -1, which every count but a failed one
/// exceeds.
constexpr std::uint32_t kLimitNotRead = 0xFFFFFFFF;

/// Capacities of the line card, read once a process by lib_init, only read from then on.
struct platform_limits_t {
  std::uint32_t vpn_max = kLimitNotRead;          ///< VPNs of both families together
  std::uint32_t vpls_max_ac_itf = kLimitNotRead;  ///< access interfaces of one VPLS VPN
};

extern platform_limits_t platform_limits;

/// Reads the VPN limit from the feature model unless it has been read. A failed read leaves it for the next lib_init.
void set_vpn_max_limit();

/// The same for the access-interface limit.
void set_vpls_max_ac_itf_limit();

#endif
