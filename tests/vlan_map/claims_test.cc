#include "vlan_map/claims.h"

#include <gtest/gtest.h>

#include "tests/vlan_map/drawn_map.h"

namespace {

struct Row {
  std::string what;
  Lines running;
  Lines candidate;
  Lines claims;
};

const std::string south = "vpws-group branches vpn south, ";
const std::string data = "vpls-group campus vpn data, ";

void expect_claims(const std::vector<Row> &rows) {
  for (const Row &row : rows) EXPECT_EQ(claims_in(map_of(row.running, row.candidate)), row.claims) << row.what;
}

TEST(Claims, of_every_kind_stand_in_their_place) {
  const std::vector<std::pair<Lines, Lines>> rows{
      {{on_vpws("ge-1") + "/dot1q = 5"}, {"ge-1: " + south + "VLAN 5, unchanged"}},
      {{on_vpws("ge-1")}, {"ge-1: " + south + "whole port, unchanged"}},
      {{on_vpws("ge-1") + "/encapsulation/untagged"}, {"ge-1: " + south + "untagged, unchanged"}},
      {{on_vpws("ge-1") + "/encapsulation/dot1q-range{10 19}", on_vpws("ge-1") + "/encapsulation/dot1q-range{7 7}"},
       {"ge-1: " + south + "VLAN 7, unchanged", "ge-1: " + south + "VLANs 10-19, unchanged"}},
      {{domain + "/dot1q = 6", on_vpls("ge-1"), on_vpls("ge-3")},
       {"ge-1: " + data + "VLAN 6, unchanged", "ge-3: " + data + "VLAN 6, unchanged"}},
      {{on_vpls("ge-2")}, {"ge-2: " + data + "whole port, unchanged"}},
      {{on_vpls("ge-2") + "/encapsulation/untagged"}, {"ge-2: " + data + "untagged, unchanged"}},
      {{"/config/vlan{20}/interface{ge-2}"}, {"ge-2: VLAN manager vlan 20, VLAN 20, unchanged"}},
      {{"/config/igmp-snooping{3}/interface{ge-2}"}, {"ge-2: igmp-snooping 3, whole port, unchanged"}},
      {{"/config/vlan{20}/interface{ge-2}", "/config/l3-interface{core}/vlan = 20", "/mpls/ldp/interface{core}"},
       {"ge-2: VLAN manager vlan 20, VLAN 20, unchanged", "ge-2: LDP uplink core, VLAN 20, unchanged"}},
  };
  for (const auto &[lines, claims] : rows) EXPECT_EQ(claims_in(map_of(lines, lines)), claims) << lines.front();
}

TEST(Claims, are_those_that_the_validation_library_sees) {
  const std::vector<std::pair<Lines, Lines>> rows{
      // Ranges are taken beside the VPN's own VLAN, untagged frames in its stead.
      {{domain + "/dot1q = 6", on_vpls("ge-1") + "/encapsulation/dot1q-range{10 19}"},
       {"ge-1: " + data + "VLAN 6, unchanged", "ge-1: " + data + "VLANs 10-19, unchanged"}},
      {{domain + "/dot1q = 6", on_vpls("ge-1") + "/encapsulation/untagged"}, {"ge-1: " + data + "untagged, unchanged"}},
      {{on_vpws("ge-1") + "/dot1q = 5", on_vpws("ge-1") + "/encapsulation/dot1q-range{10 19}"},
       {"ge-1: " + south + "VLAN 5, unchanged", "ge-1: " + south + "VLANs 10-19, unchanged"}},
      // An uplink is on the member ports of its layer-3 interface's VLAN.
      {{"/config/vlan{20}/interface{ge-2}", "/config/l3-interface{core}/vlan = 21", "/mpls/ldp/interface{core}"},
       {"ge-2: VLAN manager vlan 20, VLAN 20, unchanged"}},
      {{"/config/vlan{20}/interface{ge-2}", "/mpls/ldp/interface{core}"},
       {"ge-2: VLAN manager vlan 20, VLAN 20, unchanged"}},
      // Neighbours and bridge settings take no VLAN.
      {{vpls + "/vfi/neighbor{192.0.2.1}/pw-id = 1", domain + "/bridge-mtu = 1500", domain + "/dot1q = 6"}, {}},
  };
  for (const auto &[lines, claims] : rows) EXPECT_EQ(claims_in(map_of(lines, lines)), claims) << lines.front();
}

TEST(Claims, tell_what_the_commit_does) {
  const Lines member{"/config/vlan{20}/interface{ge-1}"};
  const Lines uplink{"/config/vlan{20}/interface{ge-1}", "/config/vlan{30}/interface{ge-1}",
                     "/config/l3-interface{core}/vlan = 20", "/mpls/ldp/interface{core}"};
  Lines moved_uplink = uplink;
  moved_uplink[2] = "/config/l3-interface{core}/vlan = 30";
  expect_claims({
      {"a VPN comes", {}, {on_vpws("ge-1") + "/dot1q = 5"}, {"ge-1: " + south + "VLAN 5, added"}},
      {"a VPN goes", {on_vpws("ge-1") + "/dot1q = 5"}, {}, {"ge-1: " + south + "VLAN 5, removed"}},
      {"a VPN moves",
       {on_vpws("ge-1") + "/dot1q = 5"},
       {on_vpws("ge-1") + "/dot1q = 9"},
       {"ge-1: " + south + "VLAN 9, changed, was VLAN 5"}},
      {"a port-based VPN takes one VLAN",
       {on_vpws("ge-1")},
       {on_vpws("ge-1") + "/dot1q = 9"},
       {"ge-1: " + south + "VLAN 9, changed, was whole port"}},
      {"a bridge domain's VLAN moves all its attachments",
       {domain + "/dot1q = 6", on_vpls("ge-1"), on_vpls("ge-2")},
       {domain + "/dot1q = 7", on_vpls("ge-1"), on_vpls("ge-2"), on_vpls("ge-3")},
       {"ge-1: " + data + "VLAN 7, changed, was VLAN 6", "ge-2: " + data + "VLAN 7, changed, was VLAN 6",
        "ge-3: " + data + "VLAN 7, added"}},
      {"a range gives way to another",
       {on_vpws("ge-1") + "/encapsulation/dot1q-range{10 19}"},
       {on_vpws("ge-1") + "/encapsulation/dot1q-range{10 29}"},
       {"ge-1: " + south + "VLANs 10-19, removed", "ge-1: " + south + "VLANs 10-29, added"}},
      {"a VPN goes from a VLAN to untagged frames",
       {on_vpws("ge-1") + "/dot1q = 5"},
       {on_vpws("ge-1") + "/encapsulation/untagged"},
       {"ge-1: " + south + "untagged, added", "ge-1: " + south + "VLAN 5, removed"}},
      {"a static member comes", {}, member, {"ge-1: VLAN manager vlan 20, VLAN 20, added"}},
      {"an uplink moves",
       uplink,
       moved_uplink,
       {"ge-1: VLAN manager vlan 20, VLAN 20, unchanged", "ge-1: VLAN manager vlan 30, VLAN 30, unchanged",
        "ge-1: LDP uplink core, VLAN 30, changed, was VLAN 20"}},
      {"what is no claim changes",
       {vpws + "/neighbor{192.0.2.1}/pw-id = 1", on_vpws("ge-1") + "/dot1q = 5"},
       {vpws + "/neighbor{192.0.2.1}/pw-id = 2", on_vpws("ge-1") + "/dot1q = 5"},
       {"ge-1: " + south + "VLAN 5, unchanged"}},
  });
}

TEST(Claims, name_the_entry_and_the_leaf_or_range_that_make_them) {
  const vlan_map::Map map =
      map_of({}, {domain + "/dot1q = 6", on_vpls("ge-1") + "/encapsulation/dot1q-range{10 19}", on_vpws("ge-1")});
  Lines places;
  for (const vlan_map::Claim &claim : map.ports[0].claims) places.push_back(claim.path + " by " + claim.source);
  EXPECT_EQ(places, (Lines{on_vpws("ge-1") + " by " + on_vpws("ge-1"), on_vpls("ge-1") + " by " + domain + "/dot1q",
                           on_vpls("ge-1") + " by " + on_vpls("ge-1") + "/encapsulation/dot1q-range{10 19}"}));
}

TEST(Claims, ports_are_those_of_the_profile_then_those_that_a_configuration_names) {
  const vlan_map::Map map = map_of({on_vpws("service-port-7")}, {on_vpws("service-port-2"), on_vpws("ge-3")});
  Lines ports;
  for (const vlan_map::Port &port : map.ports) ports.push_back(port.name + (port.in_profile ? "" : " unknown"));
  EXPECT_EQ(ports, (Lines{"ge-1", "ge-2", "ge-3", "service-port-2 unknown", "service-port-7 unknown"}));
}

}  // namespace
