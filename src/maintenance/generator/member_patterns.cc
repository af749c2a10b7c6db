// What shares ports with VPNs: static members of the VLAN manager, uplinks and multicast snooping.

#include <algorithm>

#include "maintenance/generator/draft.h"

namespace maintenance {
namespace {

void attach_about(Draft &draft, const std::string &port, std::uint32_t vlan) {
  const l2vpn::VpnKey vpn = draft.new_vpn();
  Claim claim;
  const std::size_t kind = draft.random.number(5);
  const auto width = static_cast<std::uint32_t>(draft.random.number(4));
  if (kind == 1) claim.untagged = true;
  if (kind == 2 || kind == 3) claim.dot1q = vlan;
  if (kind == 4) claim.ranges = {{vlan, std::min(vlan + width, l2vpn::kLastVlan)}};
  draft.attach(vpn, port, claim, draft.arrival());
}

void members(Draft &draft) {
  const std::string at = draft.known_port();
  const std::uint32_t vlan = draft.vlan();
  for (std::size_t left = 1 + draft.random.number(2); left > 0; --left) {
    const bool is_next = vlan < l2vpn::kLastVlan && draft.random.one_in(3);
    const std::string port = draft.random.one_in(4) ? draft.known_port() : at;
    draft.put_member(is_next ? vlan + 1 : vlan, port, draft.arrival());
  }
  for (std::size_t left = 1 + draft.random.number(2); left > 0; --left) attach_about(draft, at, vlan);
}

void put_uplink(Draft &draft, const std::string &name, std::optional<std::uint32_t> vlan) {
  draft.each_side(draft.arrival(), [&](element::Tree &tree, bool is_before) {
    l2vpn::Uplink uplink{name, vlan};
    if (is_before && vlan) uplink.vlan = *vlan > 1 ? *vlan - 1 : *vlan + 1;
    l2vpn::put_uplink(tree, uplink);
  });
}

void uplink(Draft &draft) {
  const std::uint32_t vlan = draft.vlan();
  const std::string port = draft.known_port();
  put_uplink(draft, draft.random.text_of({"up", "up", "a-up"}),
             draft.random.one_in(6) ? std::nullopt : std::optional(vlan));
  draft.put_member(vlan, port, draft.arrival());
  attach_about(draft, port, vlan);
}

// A VPN's VLAN beside the uplink's on one port, so that nothing but the uplink is in its way.
void beside_uplink(Draft &draft) {
  const std::uint32_t vlan = draft.vlan();
  const std::string port = draft.known_port();
  put_uplink(draft, "up", vlan);
  draft.put_member(vlan, port, draft.random.one_in(3) ? Arrival::added : Arrival::stands);
  const l2vpn::VpnKey vpn = draft.new_vpn();
  Claim claim{{}, draft.random.one_in(3), {}};
  if (!claim.untagged) claim.dot1q = 20 + draft.vlan() % 100;
  draft.attach(vpn, port, claim, draft.arrival());
}

void snooping(Draft &draft) {
  const std::string port = draft.known_port();
  const auto instance = draft.random.one_of<std::int32_t>({1, 1, 2, 2147483647});
  draft.each_side(draft.arrival(), [&](element::Tree &tree, bool /*is_before*/) {
    l2vpn::put_snooping_interface(tree, {instance, port});
  });
  const l2vpn::VpnKey vpn = draft.random.one_in(4) ? draft.new_vpn() : draft.new_vpn(l2vpn::Family::vpls);
  const Claim claim = draft.claim();
  draft.attach(vpn, port, claim, draft.arrival());
}

}  // namespace

const std::vector<Pattern> member_patterns{members, members, uplink, beside_uplink, snooping};

}  // namespace maintenance
