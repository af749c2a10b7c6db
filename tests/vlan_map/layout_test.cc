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

/// Where a bar stands when VLANs are `zoom` times as wide; the page's script places bars so.
struct Extent {
  double left = 0;
  double right = 0;
};

Extent zoomed(const Bar &bar, double zoom) {
  const double width = vlan_map::kVlanWidth * zoom;
  const double left = bar.vlans.first == 0 ? 0 : kUntaggedWidth + (bar.vlans.first - 1) * width;
  const double size = std::max(kUntaggedWidth + bar.vlans.last * width - left, bar.least_width);
  const double x = std::min(left, kUntaggedWidth + kLastVlan * width - size);
  return {x, x + size};
}

bool is_apart(const Extent &a, const Extent &b) {
  return a.right <= b.left + kTolerance || b.right <= a.left + kTolerance;
}

RC_GTEST_PROP(Layout, no_mark_hides_another_however_far_the_scale_is_zoomed, ()) {
  const vlan_map::Map map = one_port(any_claims());
  const double zoom = *rc::gen::element(1.0, 1.3, 2.0, 8.0, 64.0);
  const Row row = lay_out(map, map.ports[0]);
  for (std::size_t i = 0; i < row.bars.size(); ++i) {
    for (std::size_t k = i + 1; k < row.bars.size(); ++k) {
      if (row.bars[i].lane != row.bars[k].lane) continue;
      RC_ASSERT(is_apart(zoomed(row.bars[i], zoom), zoomed(row.bars[k], zoom)));
    }
  }
}

RC_GTEST_PROP(Layout, every_claim_is_whole_inside_its_row_and_wide_enough, ()) {
  const vlan_map::Map map = one_port(any_claims());
  const Row row = lay_out(map, map.ports[0]);
  std::size_t bars = 0;
  for (const Claim &claim : map.ports[0].claims) bars += claim.previous_vlans ? 2u : 1u;
  RC_ASSERT(row.bars.size() == bars);
  for (const Bar &bar : row.bars) {
    RC_ASSERT(bar.x >= 0.0);
    RC_ASSERT(bar.right() <= vlan_map::plot_width() + kTolerance);
    RC_ASSERT(bar.width >= vlan_map::bar_width(bar.badge) - kTolerance);
    const double bottom =
        vlan_map::kRowPadding + static_cast<double>(bar.lane) * vlan_map::kLanePitch + vlan_map::kBarHeight;
    RC_ASSERT(bottom <= row.height);
  }
}

TEST(Layout, claims_that_meet_lie_in_lanes_below_one_another) {
  const vlan_map::Map map = one_port(
      {claim_of({0, kLastVlan}), claim_of({10, 10}), claim_of({10, 500}), claim_of({2000, 2000}), claim_of({0, 0})});
  std::vector<std::size_t> lanes(5);
  const Row row = lay_out(map, map.ports[0]);
  for (const Bar &bar : row.bars) lanes[bar.claim] = bar.lane;
  EXPECT_EQ(lanes, (std::vector<std::size_t>{0, 2, 1, 1, 1}));
  EXPECT_EQ(row.height, 3 * vlan_map::kLanePitch + 2 * vlan_map::kRowPadding);
}

TEST(Layout, a_port_without_claims_has_the_height_of_one_lane) {
  const vlan_map::Map map = one_port({});
  EXPECT_EQ(lay_out(map, map.ports[0]).height, vlan_map::kLanePitch + 2 * vlan_map::kRowPadding);
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
