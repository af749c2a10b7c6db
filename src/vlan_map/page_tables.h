#ifndef VLAN_MAP_PAGE_TABLES_H
#define VLAN_MAP_PAGE_TABLES_H

#include <cstddef>
#include <string>
#include <vector>

#include "vlan_map/map.h"

namespace vlan_map {

/// Numbers of the claims of a map in the page's identifiers, through all ports.
class ClaimNumbers {
 public:
  explicit ClaimNumbers(const Map &map);

  std::size_t of(const ClaimPlace &place) const { return firsts_[place.port] + place.claim; }

 private:
  std::vector<std::size_t> firsts_;
};

/// Every conflict with links to the bars of its claims ("#mark-NUMBER") and to its ports ("#port-INDEX").
std::string conflict_table(const Map &map, const ClaimNumbers &numbers);

/// Every claim, a row each ("claim-NUMBER").
std::string claim_table(const Map &map, const ClaimNumbers &numbers);

}  // namespace vlan_map

#endif
