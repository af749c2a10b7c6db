#ifndef DIAGNOSIS_CONFLICT_SEARCH_H
#define DIAGNOSIS_CONFLICT_SEARCH_H

#include <functional>

#include "diagnosis/independent_sets.h"
#include "diagnosis/locality.h"
#include "diagnosis/search_context.h"

namespace diagnosis {

/// The minimal conflicts of a commit of many entries. Known conflicts block the sets that hold all their parties, as on
/// the map of MARCO (Liffiton et al. 2016); what is left is asked about until the library accepts it: first bundles of
/// entries that are near each other, then the whole.
class ConflictSearch {
 public:
  /// All that is referred to must outlive the search.
  ConflictSearch(const SearchContext &context, const Locality &locality) : context_(context), locality_(locality) {}

  /// Finds what is to be found within the budget.
  void find_all();

  /// Finds what draws a message. Precondition: the whole commit draws it.
  void find(std::uint32_t message);

  const FoundConflicts &conflicts() const { return conflicts_; }

  /// Rules of which two parties of known conflicts may still have a fault that was not asked about.
  bool is_proven() const { return is_proven_; }

 private:
  void find_in(const NumberSet &set);
  void find_among(NumberSet left);
  bool explain(const NumberSet &set, std::uint32_t message);
  NumberSet without_parties(const NumberSet &set, const FoundConflict &conflict) const;
  IndependentSets sets_within(const NumberSet &set) const;
  void find_other_triggers();

  const SearchContext &context_;
  const Locality &locality_;
  FoundConflicts conflicts_;
  NumberSet parties_;  ///< of all conflicts
  bool is_proven_ = true;
};

/// All but as many of a conflict's parties as must go.
Bound bound_of(const FoundConflict &conflict);

}  // namespace diagnosis

#endif
