#include "l2vpn/port_claims.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include "tests/element/print.h"

namespace port_claims_test {
namespace {

using l2vpn::Attachment;
using l2vpn::ClaimKind;
using l2vpn::PortClaim;
using l2vpn::Vpn;

const l2vpn::VpnKey data{l2vpn::Family::vpls, "campus", "data"};
const l2vpn::VpnKey south{l2vpn::Family::vpws, "branches", "south"};

std::string text_of(const PortClaim &claim) {
  static constexpr std::string_view kinds[]{"whole port", "own", "range", "untagged"};
  return fmt::format("{} {}-{}{}{}", kinds[static_cast<std::size_t>(claim.kind)], claim.vlans.first, claim.vlans.last,
                     claim.beside_untagged ? ", beside untagged" : "", claim.absorbed ? ", absorbed" : "");
}

Lines texts_of(const std::vector<PortClaim> &claims) {
  Lines texts;
  for (const PortClaim &claim : claims) texts.push_back(text_of(claim));
  return texts;
}

struct Row {
  Attachment attachment;
  Lines claims;
};

TEST(PortClaims, of_a_vpws_attachment) {
  const std::vector<Row> rows{
      {{.interface = "ge-1"}, {"whole port 0-4094"}},
      {{.interface = "ge-1", .dot1q = 5}, {"own 5-5"}},
      {{.interface = "ge-1", .dot1q = 0}, {"whole port 0-4094"}},
      {{.interface = "ge-1", .untagged = true}, {"untagged 0-0"}},
      {{.interface = "ge-1", .dot1q = 5, .untagged = true}, {"untagged 0-0", "own 5-5, beside untagged"}},
      {{.interface = "ge-1", .ranges = {{7, 7}, {10, 19}}}, {"range 7-7", "range 10-19"}},
      {{.interface = "ge-1", .dot1q = 5, .ranges = {{10, 19}}}, {"own 5-5", "range 10-19"}},
      {{.interface = "ge-1", .dot1q = 15, .ranges = {{10, 19}}}, {"own 15-15", "range 10-19"}},
      {{.interface = "ge-1", .dot1q = 10, .ranges = {{10, 19}}}, {"own 10-10", "range 10-19, absorbed"}},
      {{.interface = "ge-1", .ranges = {{5, 9}, {5, 30}, {6, 7}}}, {"range 5-9", "range 5-30, absorbed", "range 6-7"}},
  };
  for (const Row &row : rows) EXPECT_EQ(texts_of(claims_of(Vpn{south}, row.attachment)), row.claims);
}

TEST(PortClaims, a_bridge_domain_gives_its_vlan_to_every_attachment) {
  const Vpn vpn{data, 6};
  EXPECT_EQ(texts_of(claims_of(vpn, {.interface = "ge-1"})), Lines{"own 6-6"});
  EXPECT_EQ(texts_of(claims_of(vpn, {.interface = "ge-2", .dot1q = 9})), Lines{"own 6-6"});
  EXPECT_EQ(texts_of(claims_of(Vpn{data}, {.interface = "ge-2", .dot1q = 9})), Lines{"whole port 0-4094"});
  EXPECT_EQ(texts_of(claims_of(vpn, {.interface = "ge-1", .ranges = {{6, 7}}})),
            (Lines{"own 6-6", "range 6-7, absorbed"}));
}

TEST(PortClaims, name_the_entry_and_the_leaf_or_range_that_make_them) {
  const std::string domain = l2vpn::bridge_domain_path(data);
  const std::string on_vpls = domain + "/access-interface{ge-1}";
  const std::string on_vpws = l2vpn::vpn_path(south) + "/access-interface{ge-1}";
  const auto places = [](const std::vector<PortClaim> &claims) {
    Lines lines;
    for (const PortClaim &claim : claims) lines.push_back(claim.path + " by " + claim.source);
    return lines;
  };
  EXPECT_EQ(
      places(claims_of(Vpn{data, 6}, {.interface = "ge-1", .ranges = {{10, 19}}})),
      (Lines{on_vpls + " by " + domain + "/dot1q", on_vpls + " by " + on_vpls + "/encapsulation/dot1q-range{10 19}"}));
  EXPECT_EQ(places(claims_of(Vpn{south}, {.interface = "ge-1", .dot1q = 5, .untagged = true})),
            (Lines{on_vpws + " by " + on_vpws + "/encapsulation/untagged", on_vpws + " by " + on_vpws + "/dot1q"}));
  EXPECT_EQ(places(claims_of(Vpn{south}, {.interface = "ge-1"})), Lines{on_vpws + " by " + on_vpws});
}

TEST(PortClaims, of_a_configuration) {
  l2vpn::Configuration configuration;
  configuration.vpns = {Vpn{data, 6, {}, false, {{.interface = "ge-1"}, {.interface = "ge-2"}}},
                        Vpn{south, {}, {}, false, {{.interface = "ge-1"}}}};
  configuration.static_members = {{20, "ge-3"}, {20, "ge-4"}, {30, "ge-3"}};
  configuration.uplinks = {{"core", 20}, {"edge", 40}, {"lost"}};
  configuration.snooping = {{7, "ge-5"}};

  Lines lines;
  for (const PortClaim &claim : port_claims(configuration)) {
    lines.push_back(fmt::format("{} {} {}: {} {}", claim.port, claim.group, claim.name, text_of(claim), claim.path));
  }
  EXPECT_EQ(lines,
            (Lines{"ge-1 campus data: own 6-6 " + l2vpn::attachment_path(data, "ge-1"),
                   "ge-2 campus data: own 6-6 " + l2vpn::attachment_path(data, "ge-2"),
                   "ge-1 branches south: whole port 0-4094 " + l2vpn::attachment_path(south, "ge-1"),
                   "ge-3  20: own 20-20 /config/vlan{20}/interface{ge-3}",
                   "ge-4  20: own 20-20 /config/vlan{20}/interface{ge-4}",
                   "ge-3  30: own 30-30 /config/vlan{30}/interface{ge-3}",
                   "ge-3  core: own 20-20 /mpls/ldp/interface{core}", "ge-4  core: own 20-20 /mpls/ldp/interface{core}",
                   "ge-5  7: whole port 0-4094 /config/igmp-snooping{7}/interface{ge-5}"}));
}

TEST(Overlap, is_what_both_ranges_hold) {
  using l2vpn::overlap;
  using l2vpn::VlanRange;
  EXPECT_EQ(overlap(VlanRange{10, 20}, VlanRange{15, 30}), (VlanRange{15, 20}));
  EXPECT_EQ(overlap(VlanRange{10, 20}, VlanRange{20, 30}), (VlanRange{20, 20}));
  EXPECT_EQ(overlap(VlanRange{10, 20}, VlanRange{21, 30}), std::nullopt);
  EXPECT_EQ(overlap(l2vpn::kUntagged, VlanRange{1, 4094}), std::nullopt);
  EXPECT_EQ(overlap(l2vpn::kUntagged, l2vpn::kWholePort), l2vpn::kUntagged);
}

TEST(Overlap, two_ports_share_nothing) {
  const PortClaim on_one = claims_of(Vpn{south}, {.interface = "ge-1", .dot1q = 5})[0];
  const PortClaim on_two = claims_of(Vpn{south}, {.interface = "ge-2", .dot1q = 5})[0];
  EXPECT_EQ(overlap(on_one, on_one), (l2vpn::VlanRange{5, 5}));
  EXPECT_EQ(overlap(on_one, on_two), std::nullopt);
}

}  // namespace
}  // namespace port_claims_test
