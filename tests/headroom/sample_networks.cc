#include "tests/headroom/sample_networks.h"

namespace headroom_test {

void nothing(Network & /*network*/) {}

void voice(Network &network) {
  Json &voice = network.vpls("voice");
  bridge_domain(voice)["dot1q"] = 10;
  vpls_port(voice, ge(1));
  vpls_port(voice, ge(2));
  add_neighbor(voice, 1);
}

void north(Network &network) {
  Json &port = vpws_port(network.vpws("north"), ge(3));
  add_vlans(port, 10, 2);
  add_ranges(port, 20, 3);
  add_vpws_neighbor(network.vpws("north"), 2);
}

void tunnels(Network &network) {
  Json &tunnels = network.vpls("tunnels");
  add_vlans(vpls_port(tunnels, ge(4)), 100, 1);
  add_ranges(vpls_port(tunnels, ge(5)), 100, 2);
}

void guests(Network &network) {
  vpls_port(network.vpls("guests"), ge(6))["encapsulation"]["untagged"] = {nullptr};
  Json &tagged = network.vpls("tagged");
  bridge_domain(tagged)["dot1q"] = 1;
  add_vlans(vpls_port(tagged, ge(7)), 2, 1);
}

void gate(Network &network) {
  Json &gate = network.vpls("gate");
  bridge_domain(gate) = {{"dot1q", 40}, {"bridge-mtu", 1500}, {"transparent-lan-service", {nullptr}}};
  vpls_port(gate, service_port(1));
}

std::function<void(Network &)> gate_with_mtu(int mtu) {
  return [mtu](Network &network) {
    gate(network);
    bridge_domain(network.vpls("gate"))["bridge-mtu"] = mtu;
  };
}

void gate_without_mtu(Network &network) {
  gate(network);
  bridge_domain(network.vpls("gate")).erase("bridge-mtu");
}

void voice_and_north(Network &network) {
  voice(network);
  north(network);
}

void voice_and_tunnels(Network &network) {
  voice(network);
  tunnels(network);
}

void all_kinds(Network &network) {
  voice_and_north(network);
  tunnels(network);
  gate(network);
}

void ten_ranges(Network &network) { add_ranges(vpws_port(network.vpws("north"), ge(3)), 20, 10); }

void ten_ranges_and_a_vpn(Network &network) {
  ten_ranges(network);
  network.vpls("new");
}

void whole_port(Network &network) {
  vpws_port(network.vpws("north"), ge(3))["encapsulation"]["dot1q-range"] = {{{"min", 1}, {"max", 4094}}};
}

void port_of_all_vlans(Network &network) {
  vpws_port(network.vpws("north"), ge(3));
  for (int vlan = 1; vlan <= 4094; ++vlan) network.member(vlan, ge(3));
}

void crowded_port(Network &network) {
  north(network);
  for (const int vlan : {1, 3, 6}) network.member(vlan, ge(3));
  vpws_port(network.vpws("west"), ge(3))["dot1q"] = 8;
}

void group_with_blank(Network &network) {
  voice(network);
  network.vpws("no good name");
}

void two_vpns_on_one_port(Network &network) {
  voice(network);
  vpls_port(network.vpls("first"), ge(9));
  vpls_port(network.vpls("second"), ge(9));
}

}  // namespace headroom_test
