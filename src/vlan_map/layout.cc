#include "vlan_map/layout.h"

#include <algorithm>
#include <tuple>
#include <utility>

#include "vlan_map/words.h"

namespace vlan_map {
namespace {

constexpr double kGap = 1;

Mark mark_of(std::size_t claim, bool is_former, const VlanRange &vlans, std::string signs) {
  const double least_width = mark_width(signs);
  Mark mark{claim, is_former, vlans, std::move(signs), least_width, left_of(vlans.first), 0, 0};
  mark.width = std::max(right_of(vlans.last) - mark.x, least_width);
  mark.x = std::min(mark.x, plot_width() - mark.width);
  return mark;
}

std::vector<Mark> marks_of(const Map &map, const Port &port) {
  std::vector<Mark> marks;
  for (std::size_t i = 0; i < port.claims.size(); ++i) {
    const Claim &claim = port.claims[i];
    marks.push_back(mark_of(i, false, claim.vlans, signs_of(map, claim)));
    if (claim.formerly) marks.push_back(mark_of(i, true, *claim.formerly, former_signs_of(claim)));
  }
  return marks;
}

/// From left to right, each mark takes the first lane that is free: the number of lanes is the least possible.
std::size_t assign_lanes(std::vector<Mark> &marks) {
  std::sort(marks.begin(), marks.end(), [](const Mark &a, const Mark &b) {
    return std::tie(a.x, b.width, a.claim, a.is_former) < std::tie(b.x, a.width, b.claim, b.is_former);
  });
  std::vector<double> ends;
  for (Mark &mark : marks) {
    const auto free = std::find_if(ends.begin(), ends.end(), [&mark](double end) { return end + kGap <= mark.x; });
    mark.lane = static_cast<std::size_t>(free - ends.begin());
    if (free == ends.end()) {
      ends.push_back(mark.right());
    } else {
      *free = mark.right();
    }
  }
  return ends.size();
}

}  // namespace

double mark_width(std::string_view signs) {
  return 2 * kMarkPadding + static_cast<double>(signs.size()) * kCharacterWidth;
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
  row.marks = marks_of(map, port);
  const auto lanes = static_cast<double>(std::max<std::size_t>(assign_lanes(row.marks), 1));
  row.height = lanes * kLanePitch + 2 * kRowPadding;
  return row;
}

}  // namespace vlan_map
