#ifndef VLAN_MAP_SVG_H
#define VLAN_MAP_SVG_H

#include <cstddef>
#include <string>
#include <vector>

#include "vlan_map/map.h"

namespace vlan_map {

/// The map as one SVG document without outside resources: verdict, conflicts, legend, and a row a port. Every row and
/// claim has a title, which a screen reader speaks and a browser shows.
std::string to_svg(const Map &map);

/// Legend and rows of some of the ports, by their indexes, as elements of a page, none higher than a sheet of paper
/// unless one row is. The page has the style sheet.
std::string picture_sheets(const Map &map, const std::vector<std::size_t> &ports);

}  // namespace vlan_map

#endif
