// VPNs that meet on ports: the same VLAN, ranges that overlap, whole ports, frames without a tag, encapsulations that
// do not go together.

#include "maintenance/generator/draft.h"

namespace maintenance {
namespace {

// Several VPNs that all take the same of one port.
void clique(Draft &draft) {
  const std::string port = draft.port();
  const std::uint32_t vlan = draft.vlan();
  const std::size_t kind = draft.random.number(6);
  for (std::size_t left = 2 + draft.random.number(2); left > 0; --left) {
    const l2vpn::VpnKey vpn = draft.new_vpn();
    Claim claim;
    if (kind < 4) claim.dot1q = vlan;
    if (kind == 4) claim.ranges = {{vlan, vlan}};
    const Arrival arrival = draft.arrival();
    draft.attach(vpn, port, claim, arrival);
  }
}

// A wide range that others fall into.
void hub(Draft &draft) {
  const std::string port = draft.port();
  const l2vpn::VpnKey hub = draft.new_vpn();
  draft.attach(hub, port, {{}, false, {{1, 9}}}, draft.arrival());
  for (std::size_t left = 1 + draft.random.number(3); left > 0; --left) {
    const l2vpn::VpnKey vpn = draft.new_vpn();
    const Claim claim{draft.vlan(), false, {}};
    draft.attach(vpn, port, claim, draft.arrival());
  }
}

// Ranges of which each meets the next.
void chain(Draft &draft) {
  const std::string port = draft.port();
  for (const std::uint32_t first : {1U, 4U, 7U}) {
    const l2vpn::VpnKey vpn = draft.new_vpn();
    const auto width = static_cast<std::uint32_t>(2 + draft.random.number(3));
    draft.attach(vpn, port, {{}, false, {{first, first + width}}}, draft.arrival());
  }
}

void untagged_twice(Draft &draft) {
  const std::string port = draft.port();
  for (std::size_t left = 2 + draft.random.number(2); left > 0; --left) {
    const l2vpn::VpnKey vpn = draft.new_vpn();
    Claim claim{{}, true, {}};
    if (draft.random.one_in(4)) claim.dot1q = draft.vlan();
    draft.attach(vpn, port, claim, draft.arrival());
  }
}

// Interfaces with and without an encapsulation in one bridge domain.
void mixed_encapsulations(Draft &draft) {
  const l2vpn::VpnKey vpn = draft.new_vpn(l2vpn::Family::vpls);
  const std::uint32_t inner = draft.vlan();
  if (draft.random.one_in(3)) {
    const BridgeDomain domain{draft.vlan(), {}, false};
    draft.put_bridge_domain(vpn, domain, draft.arrival());
  }
  for (const char *port : {"eth1", "eth2", "eth3", "eth%%"}) {
    if (draft.random.one_in(4)) continue;
    Claim claim;
    claim.untagged = draft.random.one_in(3);
    if (!claim.untagged && draft.random.one_in(2)) claim.ranges = {{inner, inner}};
    draft.attach(vpn, port, claim, draft.arrival());
  }
}

// A range about the VLAN of its own bridge domain: begins at it, holds it or lies beside it.
void range_at_bridge_domain(Draft &draft) {
  const l2vpn::VpnKey vpn = draft.new_vpn();
  const auto vlan = static_cast<std::uint32_t>(3 + draft.random.number(4));
  const auto below = static_cast<std::uint32_t>(draft.random.number(3));
  const auto width = static_cast<std::uint32_t>(draft.random.number(4));
  const std::string port = draft.known_port();
  draft.attach(vpn, port, {vlan, false, {{vlan - below, vlan - below + width}}}, draft.arrival());
}

void noise(Draft &draft) {
  const l2vpn::VpnKey vpn = draft.vpn();
  const std::string port = draft.port();
  const Claim claim = draft.claim();
  draft.attach(vpn, port, claim, draft.arrival());
}

void names(Draft &draft) {
  const l2vpn::VpnKey vpn = draft.vpn();
  const Arrival arrival = draft.arrival();
  draft.each_side(arrival, [&vpn](element::Tree &tree, bool /*is_before*/) { l2vpn::ensure_vpn(tree, vpn); });
}

}  // namespace

const std::vector<Pattern> access_patterns{
    clique, clique, hub,   chain, untagged_twice, mixed_encapsulations, range_at_bridge_domain,
    noise,  noise,  noise, names};

}  // namespace maintenance
