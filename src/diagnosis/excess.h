#ifndef DIAGNOSIS_EXCESS_H
#define DIAGNOSIS_EXCESS_H

#include <cstdint>
#include <vector>

#include "diagnosis/change_units.h"
#include "diagnosis/inquiry.h"

namespace diagnosis {

/// A limit that a commit exceeds, and how often each of the units that count towards it was left out so far.
struct ExceededLimit {
  host::PointVerdict answer;  ///< as the library gave it when the limit was met first
  ItemSet counted;
  std::vector<std::uint32_t> times_left_out;  ///< by unit
};

/// The same rule of the same point, whatever the numbers in its message.
bool is_same_limit(const host::PointVerdict &a, const host::PointVerdict &b);

struct Excess {
  ItemSet units;
  ItemSet gone;  ///< the same with all that cannot be without them
};

/// The fewest of the counted units without which the rest of `within` keeps the limit. Which ones are left out is free:
/// those that were left out least often, later ones first, so that every pair of units is asked about together once
/// three sets of them have been left out. Empty where leaving out all does not help.
Excess excess(const ChangeUnits &units, Inquiry &inquiry, const ItemSet &within, const ExceededLimit &limit);

}  // namespace diagnosis

#endif
