#include "vlan_map/places.h"

#include <gtest/gtest.h>

#include "element/input/configuration.h"
#include "tests/vlan_map/drawn_map.h"
#include "vlan_map/claims.h"

namespace {

/// A static member of ge-1 in each of the VLANs, from the third line on, a line each.
element::ConfigurationFile members_of(const std::vector<int> &vlans) {
  std::string text = "{\"base:config\":\n{\"vlan\": [";
  for (const int vlan : vlans) {
    text += vlan == vlans.front() ? "\n" : ",\n";
    text += "{\"id\": " + std::to_string(vlan) + ", \"interface\": [{\"name\": \"ge-1\"}]}";
  }
  return element::parse_configuration_file(test_schema(), text + "]}}", "members");
}

Lines places_of(const std::vector<vlan_map::Port> &ports) {
  Lines places;
  for (const vlan_map::Claim &claim : ports[0].claims) {
    places.push_back(claim.vpn + " " + (claim.place ? report::to_text(*claim.place) : "nowhere"));
  }
  return places;
}

TEST(Places, are_in_the_file_that_a_change_is_looked_up_in) {
  const element::ConfigurationFile running = members_of({20, 30});
  const element::ConfigurationFile candidate = members_of({40, 20});
  const auto transaction = element::make_transaction(running.tree, candidate.tree, three_ports());
  std::vector<vlan_map::Port> ports = vlan_map::find_claims(*transaction, three_ports());
  find_places(ports, {"", "running.json", "candidate.json"}, {running.source, candidate.source});
  EXPECT_EQ(places_of(ports), (Lines{"20 running.json:3", "30 running.json:4", "40 candidate.json:3"}));
}

TEST(Places, of_an_edit_are_those_before_it_for_what_it_does_not_name) {
  const element::ConfigurationFile nothing = members_of({});
  element::ConfigurationSource edit = members_of({20}).source;
  edit.further = {{"running.json", members_of({10, 40}).source.lines}};
  const auto transaction = element::make_transaction(nothing.tree, members_of({20, 40}).tree, three_ports());
  std::vector<vlan_map::Port> ports = vlan_map::find_claims(*transaction, three_ports());
  find_places(ports, {"", "running.json", "edit.json"}, {nothing.source, edit});
  EXPECT_EQ(places_of(ports), (Lines{"20 edit.json:3", "40 running.json:4"}));
}

TEST(Places, are_left_out_where_no_file_names_the_claim) {
  std::vector<vlan_map::Port> ports = map_of({}, {"/config/vlan{20}/interface{ge-1}"}).ports;
  find_places(ports, {}, {});
  EXPECT_EQ(places_of(ports), (Lines{"20 nowhere"}));
}

}  // namespace
