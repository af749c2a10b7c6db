#ifndef TESTS_HEADROOM_SAMPLE_NETWORKS_H
#define TESTS_HEADROOM_SAMPLE_NETWORKS_H

#include <functional>

#include "tests/headroom/network.h"

namespace headroom_test {

// What commits and configurations in force are made of; ports from "ge-20" on are in no sample.

void nothing(Network &network);

/// A VPLS VPN with two ports and a neighbour.
void voice(Network &network);

/// A VPWS VPN with two VLANs and three ranges on a port, and a neighbour.
void north(Network &network);

/// A VPLS VPN whose ports select VLANs.
void tunnels(Network &network);

/// VPLS VPNs that take frames without a VLAN, and selected VLANs beside the VPN's own.
void guests(Network &network);

/// A VPLS VPN on a service port.
void gate(Network &network);

std::function<void(Network &)> gate_with_mtu(std::uint32_t mtu);

void gate_without_mtu(Network &network);

void voice_and_north(Network &network);

void voice_and_tunnels(Network &network);

void all_kinds(Network &network);

/// Ten ranges on a port, two more than any card takes.
void ten_ranges(Network &network);

void ten_ranges_and_a_vpn(Network &network);

/// All VLANs of a port belong to one VPN.
void whole_port(Network &network);

/// A VPN on a port that is a member of every VLAN.
void port_of_all_vlans(Network &network);

/// A VPN beside static members, on a port that another VPN has a VLAN of.
void crowded_port(Network &network);

void group_with_blank(Network &network);

void two_vpns_on_one_port(Network &network);

}  // namespace headroom_test

#endif
