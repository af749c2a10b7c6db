#ifndef TESTS_DIAGNOSIS_CORRECTION_SEARCH_H
#define TESTS_DIAGNOSIS_CORRECTION_SEARCH_H

#include <functional>
#include <map>
#include <set>
#include <vector>

#include "tests/diagnosis/change_parts.h"
#include "tests/diagnosis/expected_findings.h"

namespace brute_force {

/// A conflict apart from the commit it was found in: what it says and whom it concerns.
struct Complaint {
  Message message;
  std::set<std::string> parties;

  auto operator<=>(const Complaint &) const = default;
};

/// Tries every closed set of the commit's parts, small ones first.
class CorrectionSearch {
 public:
  /// The configurations must outlive the search.
  explicit CorrectionSearch(const Configurations &commit);

  const std::vector<Part> &parts() const { return parts_; }

  /// The best sets that, taken back, make the finding go and bring no new conflict: the smallest, of these the ones
  /// with the fewest removals, then the fewest changes. None within `most_parts`: empty.
  std::vector<PartSet> best_for(const std::set<Complaint> &finding, std::size_t most_parts);

  /// The same that lets the library accept without a warning.
  std::vector<PartSet> best_for_all(std::size_t most_parts);

  /// Of at most `most_parts` parts there is a closed set which, taken back, leaves complaints of which `is_it` holds.
  bool has_set(std::size_t most_parts, const std::function<bool(const PartSet &, const std::set<Complaint> &)> &is_it);

  bool helps(const PartSet &set, const std::set<Complaint> &finding);
  bool is_accepted_without(const PartSet &set) const;

 private:
  std::vector<PartSet> best(std::size_t most_parts, const std::function<bool(const PartSet &)> &is_good) const;
  std::vector<PartSet> closed_sets(std::size_t size) const;
  const std::set<Complaint> &complaints_without(const PartSet &set);

  const Configurations &commit_;
  std::vector<Part> parts_;
  std::map<PartSet, std::set<Complaint>> complaints_;
};

/// Of the complaints of a commit and of those of a changed one: the finding is gone, and there is no new one. What a
/// limit counts and what a text lists may change.
bool is_mended(const std::set<Complaint> &finding, const std::set<Complaint> &before, const std::set<Complaint> &after);

std::set<Complaint> complaints_of(const ConflictSearch &search, const ExpectedFinding &finding);

}  // namespace brute_force

#endif
