#include "bench/shapes.h"

#include <fmt/format.h>

#include "bench/ports.h"
#include "l2vpn/edit.h"

namespace bench {
namespace {

using element::Tree;

constexpr std::size_t kVlans = 4094;
constexpr std::size_t kVpnsAPort = 4;
constexpr std::size_t kPortsAVpn = 16;

// Every commit has an uplink and a snooping interface, each on a port of its own, so that the rules against them have
// something to look through and nothing to find.
constexpr const char *kShapeUplink = "uplink-1";
constexpr const char *kSnoopingPort = "video-1";

void put_vpls(Tree &tree, std::string_view vpn, std::size_t vlan, std::size_t port) {
  const l2vpn::VpnKey key{l2vpn::Family::vpls, "access", std::string(vpn)};
  l2vpn::set_dot1q(tree, key, static_cast<std::uint32_t>(vlan));
  l2vpn::put_attachment(tree, key, {.interface = port_name(port)});
}

void put_vpws(Tree &tree, std::string_view vpn, const l2vpn::Attachment &attachment) {
  l2vpn::put_attachment(tree, {l2vpn::Family::vpws, "access", std::string(vpn)}, attachment);
}

void put_on_many_ports(Tree &tree, std::size_t index) {
  const std::size_t port = index / kVpnsAPort;
  const std::size_t slot = index % kVpnsAPort;
  const std::string own_vpn = fmt::format("port-{:06}-{}", port + 1, slot);
  switch (slot) {
    case 0:
    case 1:
      return put_vpls(tree, fmt::format("ports-{:05}-{}", port / kPortsAVpn, slot), 10 + slot, port);
    case 2:
      return put_vpws(tree, own_vpn, {.interface = port_name(port), .dot1q = 20});
    default:
      return put_vpws(tree, own_vpn, {.interface = port_name(port), .ranges = {{200, 299}}});
  }
}

// Every VPN keeps to one port: with one more attachment all attachments of a VPLS VPN count as changed, and of VPNs
// over all ports ever more would be, the more ports there are.
void put_on_few_ports(Tree &tree, std::size_t index) {
  const std::size_t port = index / kVlans;
  const std::size_t vlan = 1 + index % kVlans;
  const std::string vpn = fmt::format("port-{:06}-{:04}", port + 1, vlan);
  if (vlan % 2 == 1) return put_vpls(tree, vpn, vlan, port);
  put_vpws(tree, vpn, {.interface = port_name(port), .dot1q = static_cast<std::uint32_t>(vlan)});
}

void put_access_interface(Tree &tree, Shape shape, std::size_t index) {
  switch (shape) {
    case Shape::many_ports:
      return put_on_many_ports(tree, index);
    case Shape::few_ports:
      return put_on_few_ports(tree, index);
    case Shape::one_vpn:
      return put_vpls(tree, "everywhere", 100, index);
  }
}

std::size_t ports_of(Shape shape, std::size_t access_interfaces) {
  const auto rounded_up = [access_interfaces](std::size_t divisor) {
    return (access_interfaces + divisor - 1) / divisor;
  };
  switch (shape) {
    case Shape::many_ports:
      return rounded_up(kVpnsAPort);
    case Shape::few_ports:
      return rounded_up(kVlans);
    case Shape::one_vpn:
      break;
  }
  return access_interfaces;
}

Tree configuration(const element::Schema &schema, Shape shape, std::size_t access_interfaces) {
  Tree tree(schema);
  l2vpn::put_static_member(tree, {4094, kShapeUplink});
  l2vpn::put_uplink(tree, {"l3-uplink", 4094});
  l2vpn::put_snooping_interface(tree, {1, kSnoopingPort});
  for (std::size_t index = 0; index < access_interfaces; ++index) put_access_interface(tree, shape, index);
  return tree;
}

}  // namespace

std::string_view name(Shape shape) {
  switch (shape) {
    case Shape::many_ports:
      return "many_ports";
    case Shape::few_ports:
      return "few_ports";
    case Shape::one_vpn:
      break;
  }
  return "one_vpn";
}

Commit make_commit(const element::Schema &schema, Shape shape, std::size_t access_interfaces) {
  const std::size_t in_force = access_interfaces * 9 / 10;
  return {element_with(ports_of(shape, access_interfaces), {kShapeUplink, kSnoopingPort}),
          configuration(schema, shape, in_force), configuration(schema, shape, access_interfaces)};
}

}  // namespace bench
