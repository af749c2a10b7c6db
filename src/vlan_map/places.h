#ifndef VLAN_MAP_PLACES_H
#define VLAN_MAP_PLACES_H

#include <vector>

#include "report/input_files.h"
#include "vlan_map/map.h"

namespace vlan_map {

/// Sets where each claim stands: in the candidate's file, or the edit's, what the commit adds or changes; in the
/// running configuration's what it removes or leaves. Claims whose line is not known stay without a place.
void find_places(std::vector<Port> &ports, const report::InputFiles &files, const report::InputSources &sources);

}  // namespace vlan_map

#endif
