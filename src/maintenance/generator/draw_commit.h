#ifndef MAINTENANCE_GENERATOR_DRAW_COMMIT_H
#define MAINTENANCE_GENERATOR_DRAW_COMMIT_H

#include <cstdint>

#include "maintenance/commits/commit.h"

namespace maintenance {

/// A commit of a seed: the same seed draws the same commit with every build of this version. Things of both families
/// come, go, change in place, move and are renamed, on few ports, VLANs and pw-ids, so that rules meet them; a part of
/// the commits has no fault. The element is one of a few, which differ in their card's limits: profiles are shared, so
/// that commits to one element are known by the same pointer. The schema must outlive the commit.
Commit draw_commit(const element::Schema &schema, std::uint64_t seed);

}  // namespace maintenance

#endif
