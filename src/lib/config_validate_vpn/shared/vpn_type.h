#ifndef CONFIG_VALIDATE_VPN_SHARED_VPN_TYPE_H
#define CONFIG_VALIDATE_VPN_SHARED_VPN_TYPE_H

namespace vpn_app {

/// The VPN family whose instances are counted. Numbered as the VPN applications number it, which is not how the access
/// snapshot's vpn_type_t does; the two are never converted into each other.
enum VpnType { Vpws = 1, Vpls = 2 };

}  // namespace vpn_app

#endif
