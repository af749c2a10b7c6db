#ifndef HEADROOM_PORT_VLANS_H
#define HEADROOM_PORT_VLANS_H

#include <cstdint>
#include <string>
#include <vector>

#include "headroom/configured_vpns.h"
#include "headroom/fill.h"

namespace headroom {

/// Where ranges of two VLANs can begin that the VPN takes on the interface in addition, so that they meet no other
/// VPN's VLAN and no static member there: first those that nobody has, then those within the VPN's own ranges.
std::vector<std::uint16_t> free_range_starts(const Site &site, const std::string &interface, const Vpn &vpn);

}  // namespace headroom

#endif
