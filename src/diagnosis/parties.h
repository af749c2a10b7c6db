#ifndef DIAGNOSIS_PARTIES_H
#define DIAGNOSIS_PARTIES_H

#include <vector>

#include "diagnosis/fault.h"
#include "diagnosis/places.h"

namespace diagnosis {

/// An entry that stands for a thing of the network. A VLAN range is none: it tells what an access interface takes.
bool is_thing(const Place &place);

/// The parties of a conflict, from the smallest commit that draws its message: the innermost entries there that stand
/// for a thing, each with its leafs and VLAN ranges, its own and those of what it stands in: those that are there, and
/// those that are `touched`, by place. Standings and values are the whole commit's, for a smaller commit may leave a
/// party as it was. What the commit touches stands first.
std::vector<Party> parties_of(const Places &places, const Shapes &smallest, const std::vector<bool> &touched);

/// What the whole commit does to the place itself.
Standing standing_of(const Place &place);

/// A leaf's values before and after, where it has any.
struct LeafValues {
  std::optional<std::string> old_value;
  std::optional<std::string> new_value;
};

LeafValues values_of(const Place &place);

}  // namespace diagnosis

#endif
