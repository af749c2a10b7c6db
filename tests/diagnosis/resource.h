#ifndef TESTS_DIAGNOSIS_RESOURCE_H
#define TESTS_DIAGNOSIS_RESOURCE_H

#include "tests/diagnosis/conflicts.h"

namespace brute_force {

/// Whether two conflicts of one rule are about the same: a VLAN of a port, a port, a pw-id towards a neighbour, or what
/// the message says.
bool share_a_resource(const MergedEntries &entries, const Conflict &one, const Conflict &other);

}  // namespace brute_force

#endif
