#include "vlan_map/layout.h"

#include <algorithm>
#include <tuple>
#include <utility>

#include "vlan_map/labels.h"

namespace vlan_map {
namespace {

constexpr double kGap = 1;

Bar bar_of(std::size_t claim, bool is_previous, const VlanRange &vlans, std::string badge) {
  const double least_width = bar_width(badge);
  Bar bar{claim, is_previous, vlans, std::move(badge), least_width, left_of(vlans.first), 0, 0};
  bar.width = std::max(right_of(vlans.last) - bar.x, least_width);
  bar.x = std::min(bar.x, plot_width() - bar.width);
  return bar;
}

std::vector<Bar> bars_of(const Map &map, const Port &port) {
  std::vector<Bar> bars;
  for (std::size_t i = 0; i < port.claims.size(); ++i) {
    const Claim &claim = port.claims[i];
    bars.push_back(bar_of(i, false, claim.vlans, badge_of(map, claim)));
    if (claim.previous_vlans) bars.push_back(bar_of(i, true, *claim.previous_vlans, previous_badge(claim)));
  }
  return bars;
}

/// From left to right, each bar takes the first lane that is free: the number of lanes is the least possible.
std::size_t assign_lanes(std::vector<Bar> &bars) {
  std::sort(bars.begin(), bars.end(), [](const Bar &a, const Bar &b) {
    return std::tie(a.x, b.width, a.claim, a.is_previous) < std::tie(b.x, a.width, b.claim, b.is_previous);
  });
  std::vector<double> ends;
  for (Bar &bar : bars) {
    const auto free = std::find_if(ends.begin(), ends.end(), [&bar](double end) { return end + kGap <= bar.x; });
    bar.lane = static_cast<std::size_t>(free - ends.begin());
    if (free == ends.end()) {
      ends.push_back(bar.right());
    } else {
      *free = bar.right();
    }
  }
  return ends.size();
}

}  // namespace

double bar_width(std::string_view badge) {
  return 2 * kBarPadding + static_cast<double>(badge.size()) * kCharacterWidth;
}

double left_of(std::uint32_t vlan) { return vlan == 0 ? 0 : kUntaggedWidth + (vlan - 1) * kVlanWidth; }

double right_of(std::uint32_t vlan) { return kUntaggedWidth + vlan * kVlanWidth; }

double plot_width() { return right_of(kLastVlan); }

std::vector<std::uint32_t> scale_ticks() {
  std::uint32_t step = 1;
  for (const std::uint32_t wider : {2u, 5u, 10u, 20u, 50u, 100u, 200u, 500u, 1000u}) {
    if (step * kVlanWidth >= kTickDistance) break;
    step = wider;
  }
  std::vector<std::uint32_t> ticks;
  for (std::uint32_t vlan = step; vlan <= kLastVlan; vlan += step) ticks.push_back(vlan);
  return ticks;
}

Row lay_out(const Map &map, const Port &port) {
  Row row;
  row.bars = bars_of(map, port);
  const auto lanes = static_cast<double>(std::max<std::size_t>(assign_lanes(row.bars), 1));
  row.height = lanes * kLanePitch + 2 * kRowPadding;
  return row;
}

}  // namespace vlan_map
