#include "vlan_map/conflicts.h"

#include <gtest/gtest.h>

#include "tests/vlan_map/drawn_map.h"
#include "vlan_map/labels.h"

namespace {

using vlan_map::Conflict;
using vlan_map::Map;

/// The claims of a conflict as "PORT VLANS of the holder".
Lines claims_of(const Map &map, const Conflict &conflict) {
  Lines lines;
  for (const vlan_map::ClaimPlace &place : conflict.claims) {
    const vlan_map::Port &port = map.ports[place.port];
    const vlan_map::Claim &claim = port.claims[place.claim];
    lines.push_back(port.name + " " + vlan_map::text_of(claim.vlans) + " of " + vpn_text(claim));
  }
  return lines;
}

Lines overlaps_of(const Map &map, const Conflict &conflict) {
  Lines lines;
  for (const vlan_map::Overlap &overlap : conflict.overlaps) {
    lines.push_back(map.ports[overlap.port].name + " " + vlan_map::text_of(overlap.vlans));
  }
  return lines;
}

struct Row {
  std::string what;
  Lines configuration;
  Lines parties;
  Lines claims;
  Lines overlaps;
};

TEST(Conflicts, have_the_claims_of_their_parties) {
  const std::string range = on_vpws("ge-1") + "/encapsulation/dot1q-range";
  const Lines uplink{"/config/l3-interface{core}/vlan = 20", "/mpls/ldp/interface{core}",
                     "/config/vlan{20}/interface{ge-1}", "/config/vlan{20}/interface{ge-2}"};
  const std::vector<Row> rows{
      {"two VPNs on one VLAN",
       {domain + "/dot1q = 6", on_vpls("ge-1"), on_vpls("ge-2"), on_vpws("ge-1") + "/dot1q = 6"},
       {on_vpws("ge-1"), on_vpls("ge-1")},
       {"ge-1 VLAN 6 of vpn south", "ge-1 VLAN 6 of vpn data"},
       {"ge-1 VLAN 6"}},
      {"of many ranges, the one that is told",
       {domain + "/dot1q = 25", on_vpls("ge-1"), range + "{10 19}", range + "{20 29}"},
       {on_vpws("ge-1") + " with " + range + "{20 29}", on_vpls("ge-1") + " with " + domain + "/dot1q"},
       {"ge-1 VLANs 20-29 of vpn south", "ge-1 VLAN 25 of vpn data"},
       {"ge-1 VLAN 25"}},
      {"a range that begins at its own bridge domain's VLAN",
       {domain + "/dot1q = 10", on_vpls("ge-1") + "/encapsulation/dot1q-range{10 19}"},
       {on_vpls("ge-1")},
       {"ge-1 VLAN 10 of vpn data", "ge-1 VLANs 10-19 of vpn data"},
       {"ge-1 VLAN 10"}},
      {"innocent ranges beside the one that meets another's VLAN",
       {domain + "/dot1q = 25", on_vpls("ge-1"), range + "{10 19}", range + "{20 29}", range + "{30 39}"},
       {on_vpws("ge-1"), on_vpls("ge-1")},
       {"ge-1 VLANs 20-29 of vpn south", "ge-1 VLAN 25 of vpn data"},
       {"ge-1 VLAN 25"}},
      {"an innocent attachment on another port of the same VPN",
       {domain + "/dot1q = 6", on_vpls("ge-1"), on_vpls("ge-2"), on_vpws("ge-2") + "/dot1q = 7", on_vpws("ge-1")},
       {on_vpws("ge-1"), on_vpls("ge-1")},
       {"ge-1 whole port of vpn south", "ge-1 VLAN 6 of vpn data"},
       {"ge-1 VLAN 6"}},
      {"claims that do not meet",
       {range + "{10 19}", range + "{20 29}"},
       {on_vpws("ge-1")},
       {"ge-1 VLANs 10-19 of vpn south", "ge-1 VLANs 20-29 of vpn south"},
       {}},
      {"of an uplink, the port that the other party names",
       {uplink[0], uplink[1], uplink[2], uplink[3], on_vpws("ge-2") + "/dot1q = 5"},
       {on_vpws("ge-2"), "/config/vlan{20}/interface{ge-2}", "/mpls/ldp/interface{core}"},
       {"ge-2 VLAN 5 of vpn south", "ge-2 VLAN 20 of vlan 20", "ge-2 VLAN 20 of core"},
       {}},
      {"a limit on VPNs is about no claim", {on_vpws("ge-1")}, {vpws}, {}, {}},
  };
  for (const Row &row : rows) {
    Map map = map_of({}, row.configuration);
    map.conflicts = find_conflicts({finding("no", row.parties)}, map.ports);
    ASSERT_EQ(map.conflicts.size(), 1u) << row.what;
    EXPECT_EQ(claims_of(map, map.conflicts[0]), row.claims) << row.what;
    EXPECT_EQ(overlaps_of(map, map.conflicts[0]), row.overlaps) << row.what;
  }
}

TEST(Conflicts, what_is_removed_is_no_part_unless_the_party_is_removed) {
  const std::string range = on_vpws("ge-1") + "/encapsulation/dot1q-range";
  Map map = map_of({range + "{10 19}"}, {range + "{10 29}"});
  map.conflicts = find_conflicts({finding("no", {on_vpws("ge-1")})}, map.ports);
  EXPECT_EQ(claims_of(map, map.conflicts[0]), (Lines{"ge-1 VLANs 10-29 of vpn south"}));

  Map gone = map_of({on_vpws("ge-1")}, {});
  report::Finding about_removed = finding("no", {on_vpws("ge-1")});
  about_removed.parties[0].node.status = report::ChangeStatus::removed;
  gone.conflicts = find_conflicts({about_removed}, gone.ports);
  EXPECT_EQ(claims_of(gone, gone.conflicts[0]), (Lines{"ge-1 whole port of vpn south"}));
}

TEST(Conflicts, are_marked_on_their_claims_and_ports) {
  Map map = map_of({}, {on_vpws("ge-2") + "/dot1q = 5"});
  report::Finding second = finding("second", {on_vpws("ge-2")});
  second.is_warning = true;
  map.conflicts = find_conflicts({finding("first", {on_vpws("ge-2")}), second}, map.ports);
  EXPECT_EQ(map.ports[0].conflicts, (std::vector<std::size_t>{}));
  EXPECT_EQ(map.ports[1].conflicts, (std::vector<std::size_t>{0, 1}));
  EXPECT_EQ(sentence_of(map, map.ports[1], map.ports[1].claims[0]),
            "ge-2: vpws-group branches vpn south, VLAN 5, added; rejection 1: first; warning 2: second");
  EXPECT_EQ(badge_of(map, map.ports[1].claims[0]), "!!1+W");
}

TEST(Conflicts, what_only_makes_the_library_look_is_no_cause) {
  Map map = map_of({domain + "/dot1q = 6", on_vpls("ge-1"), on_vpws("ge-1") + "/dot1q = 6"},
                   {domain + "/dot1q = 6", on_vpls("ge-1"), on_vpws("ge-1") + "/dot1q = 6",
                    "/config/vlan{6}/interface{ge-2}", "/config/vlan{9}/interface{ge-1}"});
  report::Finding in_force = finding("no", {on_vpws("ge-1"), on_vpls("ge-1")});
  in_force.is_preexisting = true;
  in_force.triggers = finding("", {"/config/vlan{9}/interface{ge-1}"}).parties;
  map.conflicts = find_conflicts({in_force}, map.ports);
  EXPECT_EQ(claims_of(map, map.conflicts[0]), (Lines{"ge-1 VLAN 6 of vpn south", "ge-1 VLAN 6 of vpn data"}));
  EXPECT_TRUE(map.ports[0].claims.back().conflicts.empty());
}

TEST(Conflicts, of_a_limit_all_claims_count) {
  const std::string range = on_vpws("ge-1") + "/encapsulation/dot1q-range";
  Map map = map_of({}, {range + "{10 19}", range + "{20 29}"});
  report::Finding limit = finding("no", {on_vpws("ge-1")});
  limit.enough = 1;
  map.conflicts = find_conflicts({limit}, map.ports);
  EXPECT_EQ(map.conflicts[0].claims.size(), 2u);
}

TEST(Conflicts, a_finding_that_was_not_looked_into_has_no_claims) {
  Map map = map_of({}, {on_vpws("ge-1") + "/dot1q = 5"});
  report::Finding bare;
  bare.message = "no";
  map.conflicts = find_conflicts({bare}, map.ports);
  ASSERT_EQ(map.conflicts.size(), 1u);
  EXPECT_TRUE(map.conflicts[0].claims.empty());
  EXPECT_TRUE(map.conflicts[0].ports.empty());
}

}  // namespace
