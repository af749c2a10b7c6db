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
inline constexpr double kFreeHeight = 12;        ///< of the line of free VLANs below the lanes
inline constexpr double kCharacterWidth = 6.03;  ///< of the bars' monospaced type
inline constexpr double kBarPadding = 4;
inline constexpr double kUntaggedWidth = 56;  ///< of VLAN 0, so that no untagged claim lies over a VLAN
inline constexpr double kVlanWidth = 0.25;    ///< of each other VLAN
inline constexpr double kThinnestBar = 6;     ///< a claim that is narrower on the scale has a mark instead of a bar
inline constexpr double kMarkWidth = 7;
inline constexpr double kTickDistance = 50;  ///< the least between two ticks of the scale

/// Left and right edge of VLANs on the scale.
double left_of(std::uint32_t vlan);
double right_of(std::uint32_t vlan);
double plot_width();

/// The VLANs with a tick on the scale, ascending.
std::vector<std::uint32_t> scale_ticks();

double text_width(std::string_view text);

enum class Shape {
  bar,        ///< as wide as its VLANs on the scale
  vlan_mark,  ///< one VLAN, which the scale is too narrow for
  range_mark  ///< few VLANs, likewise
};

/// A claim as it is drawn, with as much of its name as there is room for. A changed claim has a second one for the
/// VLANs that it had before the commit.
struct Bar {
  std::size_t claim = 0;
  bool is_previous = false;  ///< the bar for the VLANs before the commit
  VlanRange vlans;
  Shape shape = Shape::bar;
  double x = 0;  ///< of the VLANs on the scale, exact
  double width = 0;
  std::string label;   ///< may be empty
  double label_x = 0;  ///< where it begins: in the bar, or beside the mark
  double left = 0;     ///< what the claim needs of its lane: bar or mark, and label
  double right = 0;
  std::size_t lane = 0;
};

struct Row {
  std::vector<Bar> bars;
  std::size_t lanes = 1;
  double height = 0;
};

/// Places the claims of a port in lanes, of which no two overlap in one. Claims have their whole names if `most_lanes`
/// are enough for that, else as much of them as is possible.
Row lay_out(const Map &map, const Port &port, std::size_t most_lanes);

}  // namespace vlan_map

#endif
