#ifndef VLAN_MAP_SVG_H
#define VLAN_MAP_SVG_H

#include <string>

#include "vlan_map/map.h"

namespace vlan_map {

/// The map as one SVG document without outside resources: verdict, conflicts, legend, and a row a port. Every row and
/// claim has a title, which a screen reader speaks and a browser shows.
std::string to_svg(const Map &map);

}  // namespace vlan_map

#endif
