#ifndef VLAN_MAP_HTML_H
#define VLAN_MAP_HTML_H

#include <string>

#include "vlan_map/map.h"

namespace vlan_map {

/// The map as one page without outside resources, under a content security policy that allows none: verdict, table of
/// conflicts, the picture with search, filter, zoom and details, and a table of all claims. Without scripts it is still
/// the picture between its tables.
std::string to_html(const Map &map);

}  // namespace vlan_map

#endif
