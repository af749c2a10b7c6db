#ifndef DIAGNOSIS_PARTIES_H
#define DIAGNOSIS_PARTIES_H

#include <vector>

#include "diagnosis/fault.h"
#include "diagnosis/places.h"

namespace diagnosis {

/// The parties of a conflict, from the smallest commit that draws its message: the innermost entries that stand for a
/// thing of the network, each with the leafs and VLAN ranges that it has, its own and those of what it stands in. What
/// the commit touches stands first.
std::vector<Party> parties_of(const Places &places, const Shapes &shapes);

/// What a commit of this shape does to the place itself.
Standing standing_of(const Place &place, Shape shape);

/// A leaf's values before and after, where it has any.
struct LeafValues {
  std::optional<std::string> old_value;
  std::optional<std::string> new_value;
};

LeafValues values_of(const Place &place, Shape shape);

}  // namespace diagnosis

#endif
