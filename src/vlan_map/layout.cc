#include "vlan_map/layout.h"

#include <algorithm>
#include <array>
#include <tuple>
#include <utility>

#include "vlan_map/labels.h"

namespace vlan_map {
namespace {

constexpr double kGap = 2;

/// Names of one claim, the longest first. The last one is for a lane without room: only what the commit does and where
/// it conflicts.
using Names = std::array<std::string, 5>;

Names names_of(const Map &map, const Claim &claim, bool is_previous, const VlanRange &vlans) {
  const std::string badge = is_previous ? previous_badge(claim) : badge_of(map, claim);
  const std::string holder = claim.group.empty() ? vpn_text(claim) : claim.vpn;
  const std::string group = claim.group.empty() ? "" : claim.group + " ";
  const bool is_quiet = claim.status == ChangeStatus::unchanged && claim.conflicts.empty();
  const bool is_named_by_vlan = claim.claimant == Claimant::static_member;
  const std::string where = is_named_by_vlan ? "" : " " + short_text_of(vlans);
  return {badge + " " + group + holder + where, badge + " " + holder + where, badge + " " + holder, badge,
          is_quiet ? "" : badge};
}

Shape shape_of(const VlanRange &vlans, double width) {
  if (width >= kThinnestBar) return Shape::bar;
  return vlans.first == vlans.last ? Shape::vlan_mark : Shape::range_mark;
}

double needed(std::string_view label) { return label.empty() ? 0 : text_width(label) + kBarPadding; }

/// The claims of one port, from left to right.
class Packer {
 public:
  Packer(const Map &map, const Port &port) {
    for (std::size_t i = 0; i < port.claims.size(); ++i) {
      const Claim &claim = port.claims[i];
      add(i, false, claim.vlans, names_of(map, claim, false, claim.vlans));
      if (!claim.previous_vlans) continue;
      add(i, true, *claim.previous_vlans, names_of(map, claim, true, *claim.previous_vlans));
    }
  }

  Row pack(std::size_t most_lanes) {
    std::size_t lanes = 0;
    for (std::size_t level = 0; level < std::tuple_size_v<Names>; ++level) {
      for (Item &item : items_) set_label(item, level);
      lanes = assign_lanes();
      if (lanes <= most_lanes) break;
    }
    use_what_is_left(lanes);
    Row row;
    row.lanes = std::max<std::size_t>(lanes, 1);
    row.height = static_cast<double>(row.lanes) * kLanePitch + 2 * kRowPadding + kFreeHeight;
    for (Item &item : items_) row.bars.push_back(std::move(item.bar));
    return row;
  }

 private:
  struct Item {
    Bar bar;
    Names names;
  };

  void add(std::size_t claim, bool is_previous, const VlanRange &vlans, Names names) {
    Bar bar;
    bar.claim = claim;
    bar.is_previous = is_previous;
    bar.vlans = vlans;
    bar.x = left_of(vlans.first);
    bar.width = right_of(vlans.last) - bar.x;
    bar.shape = shape_of(vlans, bar.width);
    items_.push_back({std::move(bar), std::move(names)});
  }

  static std::pair<double, double> shape_extent(const Bar &bar) {
    if (bar.shape == Shape::bar) return {bar.x, bar.x + bar.width};
    const double middle = bar.x + bar.width / 2;
    return {middle - kMarkWidth / 2, middle + kMarkWidth / 2};
  }

  /// In the bar if it fits there, else beside it; at the right end of the scale, before it.
  static void set_label(Item &item, std::size_t level) {
    Bar &bar = item.bar;
    std::tie(bar.left, bar.right) = shape_extent(bar);
    bar.label = item.names.at(level);
    if (bar.label.empty()) return;
    const double width = needed(bar.label);
    if (bar.shape == Shape::bar && width + kBarPadding <= bar.width) {
      bar.label_x = bar.left + kBarPadding;
    } else if (bar.right + width <= plot_width()) {
      bar.label_x = bar.right + 2;
      bar.right += width;
    } else if (bar.left - width >= 0) {
      bar.left -= width;
      bar.label_x = bar.left;
    } else {
      bar.label.clear();
    }
  }

  /// From left to right, each claim takes the first lane that is free: the number of lanes is the least possible.
  std::size_t assign_lanes() {
    std::sort(items_.begin(), items_.end(), [](const Item &first, const Item &second) {
      const Bar &a = first.bar;
      const Bar &b = second.bar;
      return std::tie(a.left, b.right, a.claim, a.is_previous) < std::tie(b.left, a.right, b.claim, b.is_previous);
    });
    std::vector<double> ends;
    for (auto &[bar, names] : items_) {
      const auto free = std::find_if(ends.begin(), ends.end(), [&bar](double end) { return end + kGap <= bar.left; });
      bar.lane = static_cast<std::size_t>(free - ends.begin());
      if (free == ends.end()) {
        ends.push_back(bar.right);
      } else {
        *free = bar.right;
      }
    }
    return ends.size();
  }

  /// Claims with room to the right of them get a longer name.
  void use_what_is_left(std::size_t lanes) {
    std::vector<double> limits(lanes, plot_width() + kGap);
    for (auto item = items_.rbegin(); item != items_.rend(); ++item) {
      double &limit = limits[item->bar.lane];
      for (std::size_t level = 0; level < item->names.size(); ++level) {
        Item longer = *item;
        set_label(longer, level);
        if (longer.bar.left < item->bar.left || longer.bar.right + kGap > limit) continue;
        *item = std::move(longer);
        break;
      }
      limit = item->bar.left;
    }
  }

  std::vector<Item> items_;
};

}  // namespace

double left_of(std::uint32_t vlan) { return vlan == 0 ? 0 : kUntaggedWidth + (vlan - 1) * kVlanWidth; }

double right_of(std::uint32_t vlan) { return kUntaggedWidth + vlan * kVlanWidth; }

double plot_width() { return right_of(kLastVlan); }

double text_width(std::string_view text) {
  const auto is_start = [](char byte) { return (static_cast<unsigned char>(byte) & 0xc0u) != 0x80u; };
  return static_cast<double>(std::count_if(text.begin(), text.end(), is_start)) * kCharacterWidth;
}

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

Row lay_out(const Map &map, const Port &port, std::size_t most_lanes) { return Packer(map, port).pack(most_lanes); }

}  // namespace vlan_map
