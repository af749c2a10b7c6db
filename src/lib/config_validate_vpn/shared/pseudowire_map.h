#ifndef CONFIG_VALIDATE_VPN_SHARED_PSEUDOWIRE_MAP_H
#define CONFIG_VALIDATE_VPN_SHARED_PSEUDOWIRE_MAP_H

#include <cstdint>
#include <map>
#include <string>
#include <utility>

/// One pseudowire as the configuration has it. Names are bare keys, without "vpls-group " or "vpn " before them.
struct st_peer_info_t {
  std::string group_name;
  std::string vpn_name;
  std::uint32_t peer_addr;  ///< IPv4 address in network byte order as it stands in memory, ready for inet_ntop
  std::uint32_t pw_id;
};

/// The pseudowires of one configuration, VPLS and VPWS together, by (peer address, pw-id): at most one for a pw-id and
/// a neighbour. The order compares the address as the number it is in memory, so that on a little-endian
/// machine 11.0.0.1 stands before 10.0.0.2; the trace lists pseudowires in this order.
using val_pw_map_t = std::map<std::pair<std::uint32_t, std::uint32_t>, st_peer_info_t>;

#endif
