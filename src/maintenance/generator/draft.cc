#include "maintenance/generator/draft.h"

#include <fmt/format.h>

#include <algorithm>

namespace maintenance {

using element::Tree;
using l2vpn::Family;
using l2vpn::VpnKey;

Arrival Draft::arrival() {
  return random.one_of({Arrival::stands, Arrival::stands, Arrival::added, Arrival::added, Arrival::added,
                        Arrival::removed, Arrival::changed});
}

std::uint32_t Draft::vlan() { return static_cast<std::uint32_t>(random.one_in(20) ? 4094 : 1 + random.number(9)); }

std::string Draft::service_port() {
  return random.text_of({"service-port-1", "service-port-1", "service-port-2", "service-port-x", "lag-service-port-4",
                         "service-9", "service-port", "service-port-99999999999"});
}

std::string Draft::known_port() {
  if (random.one_in(4)) return service_port();
  return random.text_of({"eth1", "eth1", "eth1", "eth2", "eth2", "eth3", "eth%%"});
}

std::string Draft::port() { return random.one_in(14) ? "eth9" : known_port(); }

l2vpn::VlanRange Draft::range() {
  const std::uint32_t first = vlan();
  const auto more = static_cast<std::uint32_t>(random.number(4));
  return {first, std::min(first + more, l2vpn::kLastVlan)};
}

Claim Draft::claim() {
  Claim claim;
  switch (random.number(6)) {
    case 0:
      break;
    case 1:
      claim.untagged = true;
      if (random.one_in(4)) claim.dot1q = vlan();
      break;
    case 2:
    case 3:
      claim.dot1q = vlan();
      break;
    default:
      for (std::size_t left = 1 + random.number(2); left > 0; --left) claim.ranges.push_back(range());
      if (random.one_in(4)) claim.dot1q = vlan();
  }
  return claim;
}

Family Draft::family() { return random.one_in(2) ? Family::vpls : Family::vpws; }

VpnKey Draft::vpn() {
  VpnKey key;
  key.family = family();
  key.group = random.text_of({"g", "g", "g", "g", "g", "g", "h%%", "a b"});
  key.name = random.text_of({"a", "a", "b", "b", "c", "ab", "50%%", "a/b"});
  return key;
}

VpnKey Draft::new_vpn(Family family) {
  const bool is_shared = !random.one_in(4);
  VpnKey key{family, is_shared ? "g" : "h", {}};
  key.name = fmt::format("n{}", ++new_names_);
  return key;
}

VpnKey Draft::new_vpn() {
  const Family drawn = family();
  return new_vpn(drawn);
}

BridgeDomain Draft::bridge_domain() {
  BridgeDomain domain;
  if (random.one_in(2)) domain.dot1q = vlan();
  if (!random.one_in(3)) domain.mtu = random.one_of<std::uint32_t>({1500, 1999, 2000, 2001, 9000});
  domain.is_transparent = random.one_in(3);
  return domain;
}

void Draft::each_side(Arrival arrival, const std::function<void(Tree &, bool is_before)> &put) {
  if (arrival != Arrival::added) put(running, arrival == Arrival::changed);
  if (arrival != Arrival::removed) put(candidate, false);
}

void Draft::attach(const VpnKey &vpn, const std::string &port, const Claim &claim, Arrival arrival) {
  const Claim before = this->claim();
  each_side(arrival, [&](Tree &tree, bool is_before) {
    const Claim &put = is_before ? before : claim;
    const bool is_vpls = vpn.family == Family::vpls;
    l2vpn::erase_attachment(tree, vpn, port);
    l2vpn::put_attachment(tree, vpn, {port, is_vpls ? std::nullopt : put.dot1q, put.untagged, put.ranges});
    if (is_vpls && put.dot1q) l2vpn::set_dot1q(tree, vpn, put.dot1q);
  });
}

void Draft::put_bridge_domain(const VpnKey &vpls_vpn, const BridgeDomain &domain, Arrival arrival) {
  const BridgeDomain before = bridge_domain();
  each_side(arrival, [&](Tree &tree, bool is_before) {
    const BridgeDomain &put = is_before ? before : domain;
    l2vpn::ensure_vpn(tree, vpls_vpn);
    l2vpn::set_dot1q(tree, vpls_vpn, put.dot1q);
    l2vpn::set_bridge_mtu(tree, vpls_vpn, put.mtu);
    l2vpn::set_transparent_lan_service(tree, vpls_vpn, put.is_transparent);
  });
}

void Draft::put_pseudowire(const VpnKey &vpn, const std::string &address, bool is_backup, std::uint32_t pw_id,
                           Arrival arrival) {
  const auto before = static_cast<std::uint32_t>(random.number(4));
  each_side(arrival, [&](Tree &tree, bool is_before) {
    const l2vpn::Neighbor put{address, is_before ? before : pw_id};
    if (is_backup && vpn.family == Family::vpws) {
      l2vpn::put_backup_neighbor(tree, vpn, put);
    } else {
      l2vpn::put_neighbor(tree, vpn, put);
    }
  });
}

void Draft::put_member(std::uint32_t vlan, const std::string &port, Arrival arrival) {
  each_side(arrival, [&](Tree &tree, bool is_before) {
    l2vpn::put_static_member(tree, {is_before && vlan > 1 ? vlan - 1 : vlan, port});
  });
}

}  // namespace maintenance
