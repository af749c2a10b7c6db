#include "tests/diagnosis/small_network.h"

#include <fmt/format.h>

#include "element/datastore/path.h"

namespace drawn {
namespace {

void put_encapsulation(Lines &lines, const std::string &attachment, const Encapsulation &encapsulation) {
  lines.push_back(attachment);
  if (encapsulation.dot1q != 0) lines.push_back(fmt::format("{}/dot1q = {}", attachment, encapsulation.dot1q));
  if (encapsulation.is_untagged) {
    lines.push_back(attachment + "/encapsulation/untagged");
    return;
  }
  for (const auto &[first, last] : encapsulation.ranges) {
    lines.push_back(fmt::format("{}/encapsulation/dot1q-range{{{} {}}}", attachment, first, last));
  }
}

void put_bridge_domain(Lines &lines, const std::string &path, const BridgeDomain &bridge_domain) {
  if (bridge_domain.dot1q != 0) lines.push_back(fmt::format("{}/dot1q = {}", path, bridge_domain.dot1q));
  if (bridge_domain.mtu != 0) lines.push_back(fmt::format("{}/bridge-mtu = {}", path, bridge_domain.mtu));
  if (bridge_domain.is_tls) lines.push_back(path + "/transparent-lan-service");
}

void put_vpn(Lines &lines, const VpnName &name, const Vpn &vpn) {
  const bool is_vpls = name.family == Family::vpls;
  const std::string path = name.path();
  lines.push_back(path);
  if (is_vpls) put_bridge_domain(lines, path + "/bridge-domain", vpn.bridge_domain);
  for (const auto &[port, encapsulation] : vpn.attachments) {
    const std::string attachment =
        path + (is_vpls ? "/bridge-domain" : "") + "/access-interface{" + element::quoted_key(port) + "}";
    Encapsulation written = encapsulation;
    if (is_vpls) written.dot1q = 0;
    put_encapsulation(lines, attachment, written);
  }
  for (const auto &[neighbor, pw_id] : vpn.pw_ids) {
    const char *list = is_vpls ? "vfi/neighbor" : neighbor.is_backup ? "backup-neighbor" : "neighbor";
    lines.push_back(fmt::format("{}/{}{{{}}}/pw-id = {}", path, list, neighbor.address, pw_id));
  }
}

void put_service_port(Lines &lines, std::uint32_t number, VlanAction action) {
  const std::string path = fmt::format("/config/service-port{{{}}}", number);
  lines.push_back(path);
  if (action == VlanAction::any) lines.push_back(path + "/match/vlan/vlan-id/any");
  if (action == VlanAction::vid) lines.push_back(path + "/match/vlan/vlan-id/vid = 3");
}

}  // namespace

std::string VpnName::path() const {
  return fmt::format("/mpls/l2vpn-config/l2vpn/{}{{{}}}/vpn{{{}}}",
                     family == Family::vpls ? "vpls-group" : "vpws-group", element::quoted_key(group),
                     element::quoted_key(name));
}

Lines Network::lines() const {
  Lines lines;
  for (const auto &[name, vpn] : vpns) put_vpn(lines, name, vpn);
  for (const auto &[vlan, port] : members) {
    lines.push_back(fmt::format("/config/vlan{{{}}}/interface{{{}}}", vlan, element::quoted_key(port)));
  }
  for (const auto &[name, vlan] : uplinks) {
    lines.push_back(fmt::format("/config/l3-interface{{{}}}/vlan = {}", name, vlan));
    lines.push_back(fmt::format("/mpls/ldp/interface{{{}}}", name));
  }
  for (const auto &[instance, port] : snooping) {
    lines.push_back(fmt::format("/config/igmp-snooping{{{}}}/interface{{{}}}", instance, element::quoted_key(port)));
  }
  for (const auto &[number, action] : service_ports) put_service_port(lines, number, action);
  return lines;
}

}  // namespace drawn
