#include <fmt/format.h>

#include "tests/diagnosis/seeded_faults/seeded_fault.h"

namespace seeded {
namespace {

using diagnosis::ChangeStatus;

std::string tls(const Vpn &vpn) { return vpn.bridge_domain() + "/transparent-lan-service"; }

std::string bridge_mtu(const Vpn &vpn, std::size_t mtu) {
  return fmt::format("{}/bridge-mtu = {}", vpn.bridge_domain(), mtu);
}

/// What a VPLS VPN needs to have a service port: the service, a small MTU, and a VLAN, for a port that it took whole
/// would draw a warning.
Lines fit_for_service_port(NamePool &names, const Vpn &vpn) {
  return {tls(vpn), bridge_mtu(vpn, 1000 + names.number(1001)),
          fmt::format("{}/dot1q = {}", vpn.bridge_domain(), names.vlans())};
}

/// One VPN takes the service port whole, another a VLAN of it.
SeededFault mixed_use(Draft &draft, NamePool &names) {
  const std::string port = names.service_port();
  const Vpn whole = draw_vpn(names, Family::vpws);
  const Vpn part = draw_vpn(names);
  const Arrival arrival_of_whole = names.coin() ? Arrival::added : Arrival::stands;
  const Arrival arrival_of_part =
      arrival_of_whole == Arrival::stands || names.coin() ? Arrival::added : Arrival::stands;
  attach(draft, names, whole, port, {}, arrival_of_whole);
  if (part.family == Family::vpls) {
    put(draft, fit_for_service_port(names, part), arrival_of_part);
    put(draft, part.attachment(port), arrival_of_part);
  } else {
    attach(draft, names, part, port, vlan_claim(names.vlans()), arrival_of_part);
  }
  return {"service-port-mixed-use",
          fmt::format("{} cannot be used on port-based and VLAN based VPNs at the same time", port),
          {{whole.attachment(port), status_of(arrival_of_whole)}, {part.attachment(port), status_of(arrival_of_part)}}};
}

/// A service port is added to a VPN without a small MTU, or the MTU of a VPN that has one grows or goes.
SeededFault large_mtu(Draft &draft, NamePool &names) {
  const Vpn vpn = draw_vpn(names, Family::vpls);
  const std::string port = names.service_port();
  const std::string large = bridge_mtu(vpn, 2001 + names.number(7000));
  const Arrival arrival = names.coin() ? Arrival::added : Arrival::stands;
  put(draft, Lines{tls(vpn), fmt::format("{}/dot1q = {}", vpn.bridge_domain(), names.vlans())},
      names.coin() ? Arrival::stands : arrival);
  put(draft, vpn.attachment(port), arrival);
  if (arrival == Arrival::stands) draft.running.push_back(bridge_mtu(vpn, 1500));
  if (names.coin()) draft.candidate.push_back(large);
  return {"service-port-bridge-mtu",
          fmt::format("{} access-interface {} : VPLS VPN assigned to a service-port must have its bridge MTU lesser or "
                      "equal than 2000.",
                      vpn.text(), port),
          {{vpn.attachment(port), arrival == Arrival::added ? ChangeStatus::added : ChangeStatus::changed}}};
}

// Only the first VPN of the list is looked at: it has a group that sorts before all others.
SeededFault mixed_kinds(Draft &draft, NamePool &names) {
  const Vpn vpn{Family::vpls, "backbone", names.vpn()};
  const std::string service_port = names.service_port();
  const std::string port = names.port();
  const std::size_t way = names.number(3);
  const Arrival arrival_of_service_port = way == 0 ? Arrival::stands : Arrival::added;
  const Arrival arrival_of_port = way == 1 ? Arrival::stands : Arrival::added;
  put(draft, fit_for_service_port(names, vpn), way == 2 ? Arrival::added : Arrival::stands);
  put(draft, vpn.attachment(service_port), arrival_of_service_port);
  put(draft, vpn.attachment(port), arrival_of_port);
  return {"vpls-service-port-mixed",
          "Cannot configure access interfaces service-port and ethernet in the same VPN",
          {{vpn.attachment(service_port), status_of(arrival_of_service_port)},
           {vpn.attachment(port), status_of(arrival_of_port)}}};
}

SeededFault without_tls(Draft &draft, NamePool &names) {
  const Vpn vpn = draw_vpn(names, Family::vpls);
  const std::string port = names.service_port();
  put(draft, Lines{bridge_mtu(vpn, 1500), fmt::format("{}/dot1q = {}", vpn.bridge_domain(), names.vlans())},
      names.coin() ? Arrival::added : Arrival::stands);
  put(draft, vpn.attachment(port), Arrival::added);
  return {"vpls-service-port-without-tls",
          "To use a service-port as access interface, transparent-lan-service must be enabled",
          {{vpn.attachment(port), ChangeStatus::added}}};
}

SeededFault unnumbered(Draft &draft, NamePool &names) {
  const Vpn vpn = draw_vpn(names, Family::vpws);
  const std::string port = names.unnumbered_service_port();
  attach(draft, names, vpn, port, vlan_claim(names.vlans()), Arrival::added);
  return {"vpws-service-port-name",
          fmt::format("{} is not valid. Verify available service-port interfaces", port),
          {{vpn.attachment(port), ChangeStatus::added}}};
}

SeededFault vlan_action(Draft &draft, NamePool &names) {
  const Vpn vpn = draw_vpn(names, Family::vpws);
  const std::string port = names.service_port();
  const std::string entry = "/config/service-port{" + port.substr(port.rfind('-') + 1) + "}";
  const std::string vlan_id = entry + "/match/vlan/vlan-id/";
  const Arrival arrival_of_action = names.coin() ? Arrival::added : Arrival::stands;
  put(draft, names.coin() ? vlan_id + "any" : fmt::format("{}vid = {}", vlan_id, names.vlans()), arrival_of_action);
  const Arrival arrival = names.coin() ? Arrival::added : Arrival::changed;
  attach(draft, names, vpn, port, vlan_claim(names.vlans()), arrival);
  return {"vpws-service-port-vlan-action",
          "Service-port with VLAN action not allowed on a VPN",
          {{vpn.attachment(port), status_of(arrival)}, {entry, status_of(arrival_of_action)}}};
}

}  // namespace

std::vector<FaultKind> service_port_faults() {
  return {{"service-port-mixed-use", mixed_use},    {"service-port-bridge-mtu", large_mtu},
          {"vpls-service-port-mixed", mixed_kinds}, {"vpls-service-port-without-tls", without_tls},
          {"vpws-service-port-name", unnumbered},   {"vpws-service-port-vlan-action", vlan_action}};
}

}  // namespace seeded
