#ifndef TESTS_SUPPORT_PSEUDOWIRES_H
#define TESTS_SUPPORT_PSEUDOWIRES_H

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "config_validate_vpn/shared/pseudowire_map.h"
#include "tests/support/platform.h"

// Builders of pseudowires as the element's applications derive them from the operator's neighbours.

namespace scripted {

inline constexpr const char *kVplsNeighborList = "/internal/int-sub-vpls-vpn-nbr";
inline constexpr const char *kVpwsTunnelList = "/internal/int-vpws-tunnel-idx";
inline constexpr const char *kPseudowireTable = "/KZ-PWE3-MIB:KZ-PWE3-MIB/pwTable/pwEntry";

/// How many keys, the first values, an entry of either list has.
inline constexpr std::size_t kPwListKeys = 4;

/// A neighbour of a VPN and its pw-id, as an operator names them.
struct Pw {
  std::string group;
  std::string vpn;
  std::string peer;
  std::uint32_t pw_id = 0;
  std::uint32_t vpn_id = 1;
};

inline Values vpls_neighbor(const Pw &pw) {
  return {text(pw.group), text(pw.vpn), u32(pw.vpn_id), ipv4(pw.peer.c_str()), absent(), u32(pw.pw_id)};
}

/// Neighbours and backup neighbours alike.
inline Values vpws_tunnel(const Pw &pw) {
  return {text(pw.group), u32(pw.vpn_id), u32(address_word(pw.peer.c_str())), u32(pw.pw_id), absent(), text(pw.vpn)};
}

inline st_peer_info_t record(const Pw &pw) { return {pw.group, pw.vpn, address_word(pw.peer.c_str()), pw.pw_id}; }

inline val_pw_map_t pw_map(const std::vector<Pw> &pws) {
  val_pw_map_t map;
  for (const Pw &pw : pws) map.emplace(std::pair(address_word(pw.peer.c_str()), pw.pw_id), record(pw));
  return map;
}

/// The operator's leafs that hold a pw-id.
inline std::string vpls_pw_id_path(const Pw &pw) {
  return "/mpls/l2-vpn:l2vpn-config/l2vpn/mpls-l2vpn-vpls:vpls-group{" + pw.group + "}/vpn{" + pw.vpn +
         "}/vfi/neighbor{" + pw.peer + "}/pw-id";
}

inline std::string vpws_pw_id_path(const Pw &pw, std::string_view kind = "neighbor") {
  return "/mpls/l2-vpn:l2vpn-config/l2vpn/vpws-group{" + pw.group + "}/vpn{" + pw.vpn + "}/" + std::string(kind) + "{" +
         pw.peer + "}/pw-id";
}

}  // namespace scripted

/// Two pseudowires are one when all that is known of them is.
inline bool operator==(const st_peer_info_t &a, const st_peer_info_t &b) {
  return a.group_name == b.group_name && a.vpn_name == b.vpn_name && a.peer_addr == b.peer_addr && a.pw_id == b.pw_id;
}

inline void PrintTo(const st_peer_info_t &pw, std::ostream *out) {
  *out << '[' << pw.group_name << ", " << pw.vpn_name << ", peer " << pw.peer_addr << ", " << pw.pw_id << ']';
}

#endif
