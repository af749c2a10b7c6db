#ifndef DIAGNOSIS_ADVICE_SEARCH_H
#define DIAGNOSIS_ADVICE_SEARCH_H

#include <vector>

#include "diagnosis/correction_check.h"
#include "diagnosis/correction_search.h"
#include "diagnosis/grouping.h"
#include "diagnosis/search_context.h"

namespace diagnosis {

/// Finds what to take back, for each finding and for all together.
class AdviceSearch {
 public:
  /// All that is referred to must outlive the search.
  AdviceSearch(const SearchContext &context, const FoundConflicts &conflicts, const std::vector<ConflictGroup> &groups);

  /// The smallest sets of parts that repair each finding, so that no other comes; by group. Where there is none among
  /// the parts of the finding's own entries, one of which no part can be kept.
  const std::vector<Corrections> &for_each();

  /// The same for the whole: the library accepts it without a warning.
  Corrections for_all();

 private:
  using Groups = std::vector<std::size_t>;

  Corrections for_groups(const Groups &groups) const;
  Corrections for_limit(std::size_t group) const;
  Corrections reduced_for(const Groups &groups) const;
  Corrections together();
  std::vector<Groups> groups_that_share_parts() const;
  bool repair_rest(NumberSet &parts) const;
  NumberSet repair_of(std::uint32_t message, const NumberSet &parts) const;
  NumberSet repair_of_limit(std::uint32_t message, const NumberSet &parts) const;
  NumberSet without_needless(NumberSet parts) const;
  NumberSet entries_of(const Groups &groups) const;
  NumberSet candidates(const NumberSet &entries) const;
  bool is_limit(std::size_t group) const;
  bool silences_each(const NumberSet &parts) const;

  const SearchContext &context_;
  const FoundConflicts &conflicts_;
  const std::vector<ConflictGroup> &groups_;
  CorrectionCheck check_;
  std::vector<Corrections> corrections_;
};

}  // namespace diagnosis

#endif
