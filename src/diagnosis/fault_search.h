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
  ItemSet part;               ///< units that draw the message; of a limit all that have to do with it
  ItemSet own;                ///< the same without what other units stand on, too
  ItemSet taken_back;         ///< `own` with all that cannot be without them
  bool stands_alone = false;  ///< the parties that the commit does not touch draw it by themselves
  bool is_mended = false;     ///< other units of the whole make the library accept the parties
};

/// Finds what draws one answer of the library.
class FaultSearch {
 public:
  /// All that is referred to must outlive the search.
  FaultSearch(const Places &places, const ChangeUnits &units, Inquiry &inquiry)
      : places_(places), units_(units), inquiry_(inquiry) {}

  /// Of the units `within`, which draw the answer when the commit has no others. What other units of `whole` mend is
  /// passed over, as long as there is something else.
  FoundFault find(const ItemSet &within, const ItemSet &whole, const Wanted &wanted) const;

  /// Tells of a limit's part what there is to choose from; the rest is what that stands in.
  void offer(FoundFault &found, const ItemSet &choices) const;

 private:
  ItemSet smallest_part(const ItemSet &within, const Wanted &wanted) const;
  Shapes smallest_configuration(const ItemSet &part, const Wanted &wanted) const;
  bool stands_alone(const std::vector<Party> &parties, Shapes smallest, const Wanted &wanted) const;
  bool is_mended(const Shapes &smallest, const ItemSet &whole) const;
  FoundFault found_fault(const ItemSet &within, const ItemSet &part, const Shapes &smallest,
                         const Wanted &wanted) const;
  ItemSet with_all_that_counts(const ItemSet &within, ItemSet part, const Wanted &wanted) const;
  ItemSet own_units(const ItemSet &within, const ItemSet &part) const;
  ItemSet taken_back(const ItemSet &within, const ItemSet &part) const;
  std::vector<bool> places_at(const ItemSet &units) const;
  std::vector<ChangePart> change_parts(const ItemSet &units) const;

  const Places &places_;
  const ChangeUnits &units_;
  Inquiry &inquiry_;
};

/// The message is a limit's: it tells how many were configured and how many are allowed.
bool is_count(const host::PointVerdict &answer);

/// A limit's message that names what exceeds it, and says the same however far it does.
bool is_named_count(const host::PointVerdict &answer);

}  // namespace diagnosis

#endif
