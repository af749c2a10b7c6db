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
inline constexpr double kMarkHeight = 16;
inline constexpr double kLanePitch = 18;
inline constexpr double kRowPadding = 4;
inline constexpr double kCharacterWidth = 6.03;  ///< of the marks' monospaced type
inline constexpr double kMarkPadding = 4;
inline constexpr double kUntaggedWidth = 56;  ///< of VLAN 0, so that no untagged claim lies over a VLAN
inline constexpr double kVlanWidth = 0.25;    ///< of each other VLAN
inline constexpr double kTickDistance = 50;   ///< the least between two ticks of the scale

/// The least width of a mark that begins with these signs.
double mark_width(std::string_view signs);

/// Left and right edge of VLANs on the scale.
double left_of(std::uint32_t vlan);
double right_of(std::uint32_t vlan);
double plot_width();

/// The VLANs with a tick, ascending.
std::vector<std::uint32_t> scale_ticks();

/// A claim in its place, or the place that a changed claim had before. Wide enough for the claim's signs, whatever the
/// number of its VLANs.
struct Mark {
  std::size_t claim = 0;
  bool is_former = false;
  VlanRange vlans;
  std::string signs;  ///< that its label begins with
  double least_width = 0;
  double x = 0;
  double width = 0;
  std::size_t lane = 0;

  double right() const { return x + width; }
};

struct Row {
  std::vector<Mark> marks;
  double height = 0;
};

/// The marks of a port. No two marks of a lane overlap, and a scale with wider VLANs keeps that so.
Row lay_out(const Map &map, const Port &port);

}  // namespace vlan_map

#endif
