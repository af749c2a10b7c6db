#include "tests/headroom/sample_networks.h"

namespace headroom_test {

void nothing(Network & /*network*/) {}

void voice(Network &network) {
  l2vpn::Vpn &voice = network.vpls("voice");
  voice.dot1q = 10;
  port_of(voice, ge(1));
  port_of(voice, ge(2));
  add_neighbor(voice, 1);
}

void north(Network &network) {
  l2vpn::Vpn &north = network.vpws("north");
  l2vpn::Attachment &port = port_of(north, ge(3));
  add_vlans(port, 10, 2);
  add_ranges(port, 20, 3);
  add_neighbor(north, 2);
}

void tunnels(Network &network) {
  l2vpn::Vpn &tunnels = network.vpls("tunnels");
  add_vlans(port_of(tunnels, ge(4)), 100, 1);
  add_ranges(port_of(tunnels, ge(5)), 100, 2);
}

void guests(Network &network) {
  port_of(network.vpls("guests"), ge(6)).untagged = true;
  l2vpn::Vpn &tagged = network.vpls("tagged");
  tagged.dot1q = 1;
  add_vlans(port_of(tagged, ge(7)), 2, 1);
}

void gate(Network &network) {
  l2vpn::Vpn &gate = network.vpls("gate");
  gate.dot1q = 40;
  gate.bridge_mtu = 1500;
  gate.transparent_lan_service = true;
  port_of(gate, service_port(1));
}

std::function<void(Network &)> gate_with_mtu(std::uint32_t mtu) {
  return [mtu](Network &network) {
    gate(network);
    network.vpls("gate").bridge_mtu = mtu;
  };
}

void gate_without_mtu(Network &network) {
  gate(network);
  network.vpls("gate").bridge_mtu.reset();
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

void ten_ranges(Network &network) { add_ranges(port_of(network.vpws("north"), ge(3)), 20, 10); }

void ten_ranges_and_a_vpn(Network &network) {
  ten_ranges(network);
  network.vpls("new");
}

void whole_port(Network &network) { port_of(network.vpws("north"), ge(3)).ranges = {{1, 4094}}; }

void port_of_all_vlans(Network &network) {
  port_of(network.vpws("north"), ge(3));
  for (std::uint32_t vlan = 1; vlan <= 4094; ++vlan) network.member(vlan, ge(3));
}

void crowded_port(Network &network) {
  north(network);
  for (const std::uint32_t vlan : {1U, 3U, 6U}) network.member(vlan, ge(3));
  port_of(network.vpws("west"), ge(3)).dot1q = 8;
}

void group_with_blank(Network &network) {
  voice(network);
  network.vpws("no good name");
}

void two_vpns_on_one_port(Network &network) {
  voice(network);
  port_of(network.vpls("first"), ge(9));
  port_of(network.vpls("second"), ge(9));
}

}  // namespace headroom_test
