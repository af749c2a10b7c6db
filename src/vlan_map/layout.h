#ifndef VLAN_MAP_LAYOUT_H
#define VLAN_MAP_LAYOUT_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "vlan_map/map.h"

namespace vlan_map {

// Pixels.
inline constexpr double kBarHeight = 16;
inline constexpr double kLanePitch = 18;
inline constexpr double kRowPadding = 4;
inline constexpr double kCharacterWidth = 6.03;  ///< of the bars' monospaced type
inline constexpr double kBarPadding = 4;
inline constexpr double kUntaggedWidth = 56;  ///< of VLAN 0, so that no untagged claim lies over a VLAN
inline constexpr double kVlanWidth = 0.25;    ///< of each other VLAN
inline constexpr double kTickDistance = 50;   ///< the least between two ticks of the scale

/// The least width of a bar: its badge must be readable.
double bar_width(std::string_view badge);

/// Left and right edge of VLANs on the scale.
double left_of(std::uint32_t vlan);
double right_of(std::uint32_t vlan);
double plot_width();

/// The VLANs with a tick on the scale, ascending.
std::vector<std::uint32_t> scale_ticks();

/// A claim as it is drawn: a bar over its VLANs, at least as wide as its badge. A changed claim has a second bar for
/// the VLANs that it had before the commit.
struct Bar {
  std::size_t claim = 0;
  bool is_previous = false;  ///< the bar for the VLANs before the commit
  VlanRange vlans;
  std::string badge;  ///< first part of its label
  double least_width = 0;
  double x = 0;
  double width = 0;
  std::size_t lane = 0;

  double right() const { return x + width; }
};

struct Row {
  std::vector<Bar> bars;
  double height = 0;
};

/// Places the bars of a port in lanes. No two bars of a lane overlap, and none do on a scale with wider VLANs.
Row lay_out(const Map &map, const Port &port);

}  // namespace vlan_map

#endif
