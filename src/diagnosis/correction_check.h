#ifndef DIAGNOSIS_CORRECTION_CHECK_H
#define DIAGNOSIS_CORRECTION_CHECK_H

#include <optional>
#include <vector>

#include "diagnosis/correction_search.h"
#include "diagnosis/grouping.h"
#include "diagnosis/search_context.h"

namespace diagnosis {

/// Proves that taking parts of the change back helps: in the commit without them a finding's conflicts are gone, and
/// every conflict is one that the whole commit has, too. That a message is known does not make its conflict known.
class CorrectionCheck {
 public:
  /// All that is referred to must outlive the check. `conflicts` are those of the whole commit, in `groups`.
  CorrectionCheck(const SearchContext &context, const FoundConflicts &conflicts,
                  const std::vector<ConflictGroup> &groups);

  /// Whether the closed set of parts repairs the findings, and nothing comes in their place. A commit whose closed sets
  /// can all be asked about is searched again without the parts; of a larger one what is around the findings and the
  /// parts.
  Effect effect(const std::vector<std::size_t> &findings, const NumberSet &parts) const;
  bool helps(const std::vector<std::size_t> &findings, const NumberSet &parts) const {
    return effect(findings, parts) == Effect::repairs;
  }

  /// The library accepts the whole commit without the parts, and without a warning.
  bool is_accepted_without(const NumberSet &parts) const;

 private:
  std::vector<bool> conflicts_of(const std::vector<std::size_t> &findings) const;
  bool is_seen_to_stay(const std::vector<bool> &is_own, const NumberSet &parts) const;
  bool is_limit_exceeded(const FoundConflict &conflict) const;
  bool is_proven_by_enumeration(const std::vector<bool> &is_own, const NumberSet &universe) const;
  Effect proven_effect(const std::vector<bool> &is_own, const NumberSet &parts) const;
  bool is_little(const NumberSet &entries) const;
  NumberSet what_is_about(const std::vector<bool> &is_own, const NumberSet &parts) const;
  bool is_known(const std::vector<bool> &is_own, const FoundConflict &conflict) const;
  bool is_proven_around(const std::vector<bool> &is_own, const NumberSet &parts) const;
  bool holds_known_pairs(const std::vector<bool> &is_own, const NumberSet &reverted, const NumberSet &others) const;
  bool holds_known_only(const std::vector<bool> &is_own, const NumberSet &entries, std::size_t depth) const;
  bool is_drawn_beside(const FoundConflict &conflict, const NumberSet &beside) const;
  bool is_beside_known(const std::vector<bool> &is_own, const FoundConflict &conflict) const;

  const SearchContext &context_;
  const FoundConflicts &conflicts_;
  const std::vector<ConflictGroup> &groups_;
  NumberSet messages_;  ///< of all conflicts
  mutable std::optional<Locality> locality_;
};

}  // namespace diagnosis

#endif
