// Service ports, transparent LAN services and the leafs of bridge domains.

#include <fmt/format.h>

#include "maintenance/generator/draft.h"

namespace maintenance {
namespace {

using l2vpn::Family;

void put_service_port(Draft &draft, const l2vpn::ServicePort &after, Arrival arrival) {
  draft.each_side(arrival, [&after](element::Tree &tree, bool is_before) {
    l2vpn::erase_service_port(tree, after.number);
    l2vpn::put_service_port(tree, is_before ? l2vpn::ServicePort{after.number, {}, true} : after);
  });
}

// A service port, its match of VLANs, and a VPN on it.
void service_port_with_action(Draft &draft) {
  const auto number = draft.random.one_of<std::uint32_t>({1, 1, 2, 4});
  l2vpn::ServicePort port{number, {}, draft.random.one_in(3)};
  if (!port.any && draft.random.one_in(2)) port.vid = 3;
  put_service_port(draft, port, draft.arrival());
  const l2vpn::VpnKey vpn = draft.new_vpn();
  const Claim claim = draft.claim();
  draft.attach(vpn, fmt::format("{}service-port-{}", number == 4 ? "lag-" : "", number), claim, draft.arrival());
}

// Service ports and others in one VPLS VPN, of which the first by name counts.
void mixed_kinds(Draft &draft) {
  const l2vpn::VpnKey vpn{Family::vpls, "a", draft.random.text_of({"a", "a", "ab", "b"})};
  if (!draft.random.one_in(3)) draft.put_bridge_domain(vpn, {{}, 1500, true}, Arrival::stands);
  for (std::size_t left = 2 + draft.random.number(2); left > 0; --left) {
    const std::string port = draft.random.one_in(2) ? draft.service_port() : draft.known_port();
    draft.attach(vpn, port, {}, draft.arrival());
  }
}

// The same over two VPNs of which one's name begins with the other's.
void mixed_kinds_of_like_names(Draft &draft) {
  const bool is_first = draft.random.one_in(2);
  draft.attach({Family::vpls, "a", "a"}, is_first ? "service-port-1" : "eth1", {}, draft.arrival());
  draft.attach({Family::vpls, "a", "ab"}, is_first ? "eth2" : "service-port-2", {}, draft.arrival());
}

// One VPN takes a service port whole, another does not.
void mixed_use(Draft &draft) {
  const std::string port = draft.service_port();
  const l2vpn::VpnKey whole = draft.new_vpn();
  draft.attach(whole, port, {}, draft.arrival());
  const l2vpn::VpnKey part = draft.new_vpn();
  const Claim claim = draft.claim();
  draft.attach(part, port, claim, draft.arrival());
}

void transparent_service(Draft &draft) {
  const l2vpn::VpnKey vpn = draft.new_vpn(Family::vpls);
  BridgeDomain domain = draft.bridge_domain();
  domain.is_transparent = !draft.random.one_in(3);
  if (!draft.random.one_in(3)) domain.dot1q.reset();
  draft.put_bridge_domain(vpn, domain, draft.arrival());
  const std::string port = draft.port();
  draft.attach(vpn, port, {}, draft.arrival());
  if (draft.random.one_in(2)) {
    const std::string other = draft.port();
    draft.attach(vpn, other, {}, draft.arrival());
  }
  if (!draft.random.one_in(2)) return;
  const l2vpn::VpnKey line = draft.new_vpn(Family::vpws);
  draft.attach(line, port, {}, draft.arrival());
}

// A VPWS VPN takes a port whole on which VPLS VPNs have VLANs; at times all of that stands, and the commit is about
// another port.
void beside_line(Draft &draft) {
  const std::string port = draft.known_port();
  const bool is_standing = draft.random.one_in(3);
  const auto arrival = [&draft, is_standing] { return is_standing ? Arrival::stands : draft.arrival(); };
  const l2vpn::VpnKey line = draft.new_vpn(Family::vpws);
  draft.attach(line, port, {}, arrival());
  for (std::size_t left = 1 + draft.random.number(2); left > 0; --left) {
    const l2vpn::VpnKey vpn = draft.new_vpn(Family::vpls);
    const std::uint32_t vlan = draft.vlan();
    draft.attach(vpn, port, {vlan, false, {}}, arrival());
  }
  if (is_standing) draft.attach(draft.new_vpn(Family::vpws), "p20", {300, false, {}}, Arrival::added);
}

// More interfaces of a transparent service than a warning looks at.
void many_transparent_ports(Draft &draft) {
  const l2vpn::VpnKey vpn = draft.new_vpn(Family::vpls);
  draft.put_bridge_domain(vpn, {{}, 1500, true}, draft.random.one_in(2) ? Arrival::changed : Arrival::stands);
  const std::size_t ports = 14 + draft.random.number(6);
  for (std::size_t i = 1; i <= ports; ++i) draft.attach(vpn, fmt::format("p{:02}", i), {}, draft.arrival());
}

void bridge_domain_leafs(Draft &draft) {
  const l2vpn::VpnKey vpn{Family::vpls, "g", draft.random.text_of({"a", "b", "c", "n1"})};
  const BridgeDomain domain = draft.bridge_domain();
  draft.put_bridge_domain(vpn, domain, draft.arrival());
}

void mtu_of_service_port(Draft &draft) {
  const l2vpn::VpnKey vpn = draft.new_vpn(Family::vpls);
  BridgeDomain domain = draft.bridge_domain();
  domain.is_transparent = true;
  draft.put_bridge_domain(vpn, domain, draft.arrival());
  const std::string port = draft.service_port();
  draft.attach(vpn, port, {}, draft.arrival());
}

}  // namespace

const std::vector<Pattern> service_patterns{service_port_with_action,
                                            service_port_with_action,
                                            mixed_kinds,
                                            mixed_kinds_of_like_names,
                                            mixed_use,
                                            transparent_service,
                                            beside_line,
                                            many_transparent_ports,
                                            bridge_domain_leafs,
                                            bridge_domain_leafs,
                                            mtu_of_service_port};

}  // namespace maintenance
