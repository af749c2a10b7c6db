#ifndef MAINTENANCE_COST_DOUBLED_COMMIT_H
#define MAINTENANCE_COST_DOUBLED_COMMIT_H

#include "maintenance/commits/commit.h"

namespace cost {

/// The commit with everything twice: beside each group of VPNs one of another name, with as many VPNs on as many other
/// ports, to the same neighbours with other pw-ids; beside each port another one with the same static members, snooping
/// and uplinks; what the card allows is twice as much. What conflicts does so twice, and nothing else does.
maintenance::Commit doubled(const maintenance::Commit &commit);

}  // namespace cost

#endif
