#ifndef DIAGNOSIS_GROUPING_H
#define DIAGNOSIS_GROUPING_H

#include "diagnosis/search_context.h"

namespace diagnosis {

/// Conflicts that are told as one finding.
using ConflictGroup = std::vector<std::size_t>;

/// Groups conflicts of one rule about one resource that share a party, transitively. The resource is, as the rule has
/// it, a VLAN of a port that all parties on the port take, a port, a pw-id towards a neighbour, or the message itself.
/// Conflicts that differ in their triggers alone are always one group. In the order of the first conflicts.
std::vector<ConflictGroup> group_conflicts(const SearchContext &context, const FoundConflicts &conflicts);

}  // namespace diagnosis

#endif
