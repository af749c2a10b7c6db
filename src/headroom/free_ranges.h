#ifndef HEADROOM_FREE_RANGES_H
#define HEADROOM_FREE_RANGES_H

#include <cstdint>
#include <vector>

#include "l2vpn/port_claims.h"

namespace headroom {

/// The first VLANs of ranges of two VLANs that the VPN can take on a port in addition to `claims`, all claims on that
/// port. No range shares a VLAN with another VPN, a static member or another range of the result. First come ranges of
/// VLANs that nobody has, then ranges within the VPN's own; each part ascends. None begins where a claim of the VPN
/// does, because the library would not count it.
std::vector<std::uint32_t> free_range_starts(const std::vector<l2vpn::PortClaim> &claims, const l2vpn::VpnKey &vpn);

}  // namespace headroom

#endif
