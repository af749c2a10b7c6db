#ifndef BENCH_SEARCH_COMMITS_H
#define BENCH_SEARCH_COMMITS_H

#include <cstddef>
#include <string_view>

#include "element/datastore/tree.h"
#include "element/profile/profile.h"

namespace bench {

/// Large commits with faults for the search to find. VPNs have one attachment each, a VLAN of a port of their own, 100
/// VPNs a group.
enum class SearchCommitKind {
  one_conflict_in_64000,      ///< 64,000 VPNs in force, one added on the VLAN of another
  conflicts_20_in_place,      ///< 10,000 VPNs whose VLAN changes, 20 of them to that of another
  conflicts_20_in_additions,  ///< 20,000 VPNs are added, and 20 on the VLAN of one of them
  conflicts_20_in_vpls,       ///< the same with VPLS VPNs
  conflicts_1000,             ///< 3,000 VPNs are added, and 1,000 on the VLAN of one of them
  pseudowires_beyond_limit    ///< 64,000 VPNs in force and one added, each with a neighbour: 1,024 are allowed
};

inline constexpr SearchCommitKind kSearchCommitKinds[] = {SearchCommitKind::one_conflict_in_64000,
                                                          SearchCommitKind::conflicts_20_in_place,
                                                          SearchCommitKind::conflicts_20_in_additions,
                                                          SearchCommitKind::conflicts_20_in_vpls,
                                                          SearchCommitKind::conflicts_1000,
                                                          SearchCommitKind::pseudowires_beyond_limit};

std::string_view name(SearchCommitKind kind);

struct SearchCommit {
  element::Profile profile;
  element::Tree running;
  element::Tree candidate;
  std::size_t findings = 0;  ///< that it has
};

/// Both trees hold what an operator writes, in order. They share the schema, which must outlive them. `scale` divides
/// the number of VPNs and of conflicts, for a test: 1 is the size that the kinds tell.
SearchCommit make_search_commit(const element::Schema &schema, SearchCommitKind kind, std::size_t scale = 1);

}  // namespace bench

#endif
