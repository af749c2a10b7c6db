#include "vlan_map/layout.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>

#include "tests/vlan_map/drawn_map.h"

namespace {

using vlan_map::Bar;
using vlan_map::Claim;
using vlan_map::kLastVlan;
using vlan_map::kUntaggedWidth;
using vlan_map::Row;
using vlan_map::Shape;
using vlan_map::VlanRange;

constexpr double kTolerance = 1e-6;

vlan_map::Map one_port(const std::vector<Claim> &claims) {
  vlan_map::Map map;
  map.ports.push_back({"ge-1", true, claims, {}});
  return map;
}

Claim claim_of(VlanRange vlans) {
  Claim claim;
  claim.vlans = vlans;
  return claim;
}

rc::Gen<VlanRange> any_vlans() {
  const auto vlan = rc::gen::inRange<std::uint32_t>(0, kLastVlan + 1);
  const auto single = rc::gen::map(vlan, [](std::uint32_t id) { return VlanRange{id, id}; });
  const auto range = rc::gen::map(rc::gen::pair(vlan, vlan), [](std::pair<std::uint32_t, std::uint32_t> ends) {
    return VlanRange{std::min(ends.first, ends.second), std::max(ends.first, ends.second)};
  });
  return rc::gen::weightedOneOf<VlanRange>({{6, single}, {2, range}, {1, rc::gen::just(vlan_map::kWholePort)}});
}

/// Claims of any standing, some of them moved; often on few VLANs.
std::vector<Claim> any_claims() {
  std::vector<Claim> claims;
  for (const VlanRange &vlans : *rc::gen::container<std::vector<VlanRange>>(any_vlans())) {
    claims.push_back(claim_of(vlans));
    if (!*rc::gen::arbitrary<bool>()) continue;
    claims.back().status = vlan_map::ChangeStatus::changed;
    claims.back().previous_vlans = *any_vlans();
  }
  return claims;
}

/// As many lanes as a port may have for names.
std::size_t any_lanes() { return *rc::gen::element<std::size_t>(1, 4, 100); }

RC_GTEST_PROP(Layout, no_claim_or_name_hides_another, ()) {
  const vlan_map::Map map = one_port(any_claims());
  const Row row = lay_out(map, map.ports[0], any_lanes());
  for (const Bar &a : row.bars) {
    for (const Bar &b : row.bars) {
      RC_ASSERT(&a == &b || a.lane != b.lane || a.right <= b.left || b.right <= a.left);
    }
  }
}

RC_GTEST_PROP(Layout, every_claim_is_exact_on_the_scale_and_whole_inside_its_row, ()) {
  const vlan_map::Map map = one_port(any_claims());
  const Row row = lay_out(map, map.ports[0], any_lanes());
  std::size_t bars = 0;
  for (const Claim &claim : map.ports[0].claims) bars += claim.previous_vlans ? 2u : 1u;
  RC_ASSERT(row.bars.size() == bars);
  for (const Bar &bar : row.bars) {
    RC_ASSERT(bar.x == vlan_map::left_of(bar.vlans.first));
    RC_ASSERT(bar.x + bar.width == vlan_map::right_of(bar.vlans.last));
    RC_ASSERT((bar.shape == Shape::bar) == (bar.width >= vlan_map::kThinnestBar));
    RC_ASSERT(bar.left >= -vlan_map::kMarkWidth / 2);
    RC_ASSERT(bar.right <= vlan_map::plot_width() + vlan_map::kMarkWidth / 2);
    RC_ASSERT(bar.lane < row.lanes);
  }
}

RC_GTEST_PROP(Layout, a_name_is_in_its_bar_or_beside_it, ()) {
  const vlan_map::Map map = one_port(any_claims());
  for (const Bar &bar : lay_out(map, map.ports[0], any_lanes()).bars) {
    if (bar.label.empty()) continue;
    RC_ASSERT(bar.label_x >= bar.left);
    RC_ASSERT(bar.label_x + vlan_map::text_width(bar.label) <= bar.right + kTolerance);
  }
}

Lines labels_of(const Row &row) {
  Lines labels;
  for (const Bar &bar : row.bars) labels.push_back(bar.label);
  return labels;
}

Claim named(VlanRange vlans, const std::string &vpn) {
  Claim claim = claim_of(vlans);
  claim.group = "branches";
  claim.vpn = vpn;
  return claim;
}

TEST(Layout, names_are_as_long_as_the_lanes_have_room_for) {
  const vlan_map::Map map = one_port({named({10, 10}, "a"), named({20, 20}, "b"), named({130, 130}, "c")});
  EXPECT_EQ(labels_of(lay_out(map, map.ports[0], 3)),
            (Lines{"W branches a 10", "W branches b 20", "W branches c 130"}));
  EXPECT_EQ(labels_of(lay_out(map, map.ports[0], 2)), (Lines{"W", "W branches b 20", "W branches c 130"}));
  Claim in_the_way = named({60, 60}, "d");
  in_the_way.status = vlan_map::ChangeStatus::added;
  const vlan_map::Map full = one_port({named({10, 10}, "a"), in_the_way});
  EXPECT_EQ(labels_of(lay_out(full, full.ports[0], 1)), (Lines{"", "+W branches d 60"}));
}

TEST(Layout, one_vlan_few_vlans_and_a_range_differ_in_shape) {
  const vlan_map::Map map = one_port({claim_of({10, 10}), claim_of({200, 205}), claim_of({1000, 1100})});
  std::vector<Shape> shapes;
  for (const Bar &bar : lay_out(map, map.ports[0], 4).bars) shapes.push_back(bar.shape);
  EXPECT_EQ(shapes, (std::vector<Shape>{Shape::vlan_mark, Shape::range_mark, Shape::bar}));
}

TEST(Layout, claims_that_meet_lie_in_lanes_below_one_another) {
  const vlan_map::Map map = one_port(
      {claim_of({0, kLastVlan}), claim_of({10, 10}), claim_of({10, 500}), claim_of({2000, 2000}), claim_of({0, 0})});
  std::vector<std::size_t> lanes(5);
  const Row row = lay_out(map, map.ports[0], 3);
  for (const Bar &bar : row.bars) lanes[bar.claim] = bar.lane;
  EXPECT_EQ(lanes, (std::vector<std::size_t>{0, 2, 1, 1, 1}));
  EXPECT_EQ(row.lanes, 3u);
}

TEST(Layout, a_port_without_claims_has_the_height_of_one_lane) {
  const vlan_map::Map map = one_port({});
  EXPECT_EQ(lay_out(map, map.ports[0], 4).height,
            vlan_map::kLanePitch + 2 * vlan_map::kRowPadding + vlan_map::kFreeHeight);
}

TEST(Layout, the_scale_goes_from_the_untagged_frames_to_the_last_vlan) {
  EXPECT_EQ(vlan_map::left_of(0), 0);
  EXPECT_EQ(vlan_map::right_of(0), kUntaggedWidth);
  EXPECT_EQ(vlan_map::left_of(1), kUntaggedWidth);
  EXPECT_EQ(vlan_map::right_of(1), vlan_map::left_of(2));
  EXPECT_EQ(vlan_map::right_of(kLastVlan), vlan_map::plot_width());
  const std::vector<std::uint32_t> ticks = vlan_map::scale_ticks();
  EXPECT_EQ(ticks.front(), 200u);
  EXPECT_EQ(ticks.back(), 4000u);
  EXPECT_EQ(ticks.size(), 20u);
}

}  // namespace
