#ifndef DIAGNOSIS_FAULT_SEARCH_H
#define DIAGNOSIS_FAULT_SEARCH_H

#include "diagnosis/change_units.h"
#include "diagnosis/fault.h"
#include "diagnosis/inquiry.h"
#include "diagnosis/places.h"

namespace diagnosis {

/// A fault, and the units of the change that go when it is taken back.
struct FoundFault {
  Fault fault;
  ItemSet part;        ///< units that draw the message
  ItemSet own;         ///< the same without what other units stand on, too
  ItemSet taken_back;  ///< `own` with all that cannot be without them
};

/// Finds what draws one answer of the library.
class FaultSearch {
 public:
  /// All that is referred to must outlive the search.
  FaultSearch(const Places &places, const ChangeUnits &units, Inquiry &inquiry)
      : places_(places), units_(units), inquiry_(inquiry) {}

  /// Of the units `within`, which draw the answer when the commit has no others.
  FoundFault find(const ItemSet &within, const Wanted &wanted) const;

 private:
  ItemSet smallest_part(const ItemSet &within, const Wanted &wanted, bool counts) const;
  Shapes smallest_configuration(const ItemSet &part, const Wanted &wanted, bool counts) const;
  ItemSet own_units(const ItemSet &within, const ItemSet &part) const;
  std::vector<ChangePart> change_parts(const ItemSet &units) const;

  const Places &places_;
  const ChangeUnits &units_;
  Inquiry &inquiry_;
};

/// The message is a limit's: it tells how many were configured and how many are allowed.
bool is_count(const host::PointVerdict &answer);

}  // namespace diagnosis

#endif
