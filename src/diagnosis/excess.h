#ifndef DIAGNOSIS_EXCESS_H
#define DIAGNOSIS_EXCESS_H

#include <cstdint>
#include <vector>

#include "diagnosis/change_units.h"
#include "diagnosis/inquiry.h"

namespace diagnosis {

/// A limit that a commit exceeds. One rule may be exceeded several times: by two VPNs, by two interfaces.
struct ExceededLimit {
  host::PointVerdict answer;                  ///< as the library gave it when the limit was met first
  ItemSet part;                               ///< the units that draw it, with all that they need
  ItemSet counted;                            ///< those of them that may be left out
  std::vector<std::uint32_t> times_left_out;  ///< by unit
};

/// The same rule of the same point, whatever the numbers and names in its message.
bool is_same_limit(const host::PointVerdict &a, const host::PointVerdict &b);

struct Excess {
  ItemSet units;
  ItemSet gone;  ///< the same with all that cannot be without them
};

/// The fewest of the counted units that no others of them need, without which `within` keeps the limit, or at least
/// what is left there of the limit's own part. Which ones are left out is free: those that were left out least often,
/// later ones first, so that every pair of units is asked about together once three sets of them have been left out.
/// Empty where the limit is kept, or nothing helps.
Excess excess(const ChangeUnits &units, Inquiry &inquiry, const ItemSet &within, const ExceededLimit &limit);

}  // namespace diagnosis

#endif
