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

/// Whether the commit changes anything on a port or conflicts there.
bool is_busy(const Port &port);

/// An article a conflict ("conflict-NUMBER", from 1): message, rule, parties with their claims ("#claim-NUMBER"),
/// advice.
std::string conflict_articles(const Map &map, const ClaimNumbers &numbers);

/// A section a port ("port-INDEX"): what is free, and a table of its claims, a row each ("claim-NUMBER").
std::string port_sections(const Map &map, const ClaimNumbers &numbers);

}  // namespace vlan_map

#endif
