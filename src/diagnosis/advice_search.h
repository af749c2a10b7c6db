#ifndef DIAGNOSIS_ADVICE_SEARCH_H
#define DIAGNOSIS_ADVICE_SEARCH_H

#include "diagnosis/correction_search.h"
#include "diagnosis/grouping.h"
#include "diagnosis/search_context.h"

namespace diagnosis {

/// Finds what to take back, for each finding and for all together.
class AdviceSearch {
 public:
  /// All that is referred to must outlive the search.
  AdviceSearch(const SearchContext &context, const FoundConflicts &conflicts, const std::vector<ConflictGroup> &groups);

  /// The smallest sets of parts without which the finding is gone and no other comes, in the commit without what is
  /// party of other findings and in the commit with some of these.
  Corrections for_finding(std::size_t group) const;

  /// The smallest sets without which the library accepts the whole commit without a warning.
  Corrections for_all() const;

 private:
  NumberSet candidates(const NumberSet &entries) const;
  std::vector<NumberSet> surroundings(const ConflictGroup &group) const;
  bool is_silent(const NumberSet &entries, const NumberSet &reverted) const;

  const SearchContext &context_;
  const FoundConflicts &conflicts_;
  const std::vector<ConflictGroup> &groups_;
};

}  // namespace diagnosis

#endif
