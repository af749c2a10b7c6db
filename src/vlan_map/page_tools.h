#ifndef VLAN_MAP_PAGE_TOOLS_H
#define VLAN_MAP_PAGE_TOOLS_H

#include <string>

namespace vlan_map {

/// The part of the page that lives by its script and is hidden without: filters, zoom, legend, the drawing, details.
std::string tools_markup();

}  // namespace vlan_map

#endif
