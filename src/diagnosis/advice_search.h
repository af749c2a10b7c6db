#ifndef DIAGNOSIS_ADVICE_SEARCH_H
#define DIAGNOSIS_ADVICE_SEARCH_H

#include <vector>

#include "diagnosis/correction_search.h"
#include "diagnosis/grouping.h"
#include "diagnosis/search_context.h"

namespace diagnosis {

/// Finds what to take back, for each finding and for all together.
class AdviceSearch {
 public:
  /// All that is referred to must outlive the search.
  AdviceSearch(const SearchContext &context, const FoundConflicts &conflicts, const std::vector<ConflictGroup> &groups);

  /// The smallest sets of parts without which each finding is gone and no other comes, in the commit without what is
  /// party of other findings and in the commit with some of these; by group.
  const std::vector<Corrections> &for_each();

  /// The smallest sets without which the library accepts the whole commit without a warning.
  Corrections for_all();

 private:
  Corrections for_groups(const std::vector<std::size_t> &groups) const;
  Corrections for_limit(std::size_t group, const std::vector<NumberSet> &around) const;
  Corrections together();
  std::vector<std::vector<std::size_t>> groups_that_share_parts() const;
  NumberSet entries_of(const std::vector<std::size_t> &groups) const;
  NumberSet candidates(const NumberSet &entries) const;
  std::vector<NumberSet> surroundings(const std::vector<std::size_t> &groups) const;
  bool helps(const std::vector<std::size_t> &groups, const std::vector<NumberSet> &around,
             const NumberSet &reverted) const;
  NumberSet messages_of(const std::vector<std::size_t> &groups) const;
  bool is_silent(const NumberSet &entries, const NumberSet &reverted) const;

  const SearchContext &context_;
  const FoundConflicts &conflicts_;
  const std::vector<ConflictGroup> &groups_;
  std::vector<std::size_t> group_of_;  ///< by conflict
  NumberSet messages_;                 ///< of all conflicts
  std::vector<Corrections> corrections_;
};

}  // namespace diagnosis

#endif
