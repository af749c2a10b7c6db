#ifndef DIAGNOSIS_CONFLICT_SEARCH_H
#define DIAGNOSIS_CONFLICT_SEARCH_H

#include <functional>
#include <map>
#include <set>
#include <string>

#include "diagnosis/independent_sets.h"
#include "diagnosis/locality.h"
#include "diagnosis/search_context.h"

namespace diagnosis {

/// The minimal conflicts of a commit of many entries.
///
/// Bundles of entries that are near each other are asked about first. What they draw is minimised, and then taken out
/// of what is left, validation point by validation point: only a fault of the same point hides another. The
/// neighbourhood of a conflict is then asked about in every way: all its closed sets, where these are many the presence
/// of each known party, and where these are many the maximal sets without a known conflict, as on the map of MARCO
/// (Liffiton et al. 2016). Last comes the whole commit in such sets, for what the neighbourhoods miss.
class ConflictSearch {
 public:
  /// All that is referred to must outlive the search.
  ConflictSearch(const SearchContext &context, const Locality &locality) : context_(context), locality_(locality) {}

  /// Finds what is to be found within the budget.
  void find_all();

  /// Finds what draws a message. Precondition: the whole commit draws it.
  void find(std::uint32_t message) { explain(context_.entries.all(), message); }

  /// Each is minimal, its triggers are told apart, and its confirmation was asked about.
  const FoundConflicts &conflicts() const { return conflicts_; }

  /// The validation points of which some set that should have been asked about was not, although the search did not
  /// have to end.
  const std::set<std::string> &unfinished_points() const { return unfinished_points_; }

 private:
  void find_among(const NumberSet &set);
  void find_at(const std::string &point, NumberSet left);
  void look_at(const NumberSet &set, const std::string *point = nullptr);
  void explain(const NumberSet &set, std::uint32_t message);
  void explain_limit(const NumberSet &set, std::uint32_t message);
  bool record(FoundConflict conflict);
  bool is_known_within(const NumberSet &set, std::uint32_t message) const;
  const FoundConflict *explanation_within(const NumberSet &set, std::uint32_t message) const;
  NumberSet without_parties(const NumberSet &set, const FoundConflict &conflict) const;
  void explore_neighborhoods();
  void look_at_pairs(const NumberSet &parties);
  void explore(const NumberSet &region);
  bool explore_presence(const NumberSet &region);
  void explore_what_is_in_force(const NumberSet &region);
  bool is_small(const NumberSet &set) const;
  void explore_independent_sets(const NumberSet &set);
  void look_beside(const NumberSet &set, const std::string &point, const FoundConflicts &conflicts);
  void ask_beside(const NumberSet &set, const FoundConflicts &conflicts,
                  const std::function<void(const NumberSet &)> &ask);
  void find_other_triggers();
  void find_triggers_of(const NumberSet &core, std::uint32_t message, const element::SchemaNode *kind);
  void leave_unfinished(const NumberSet &set);
  const std::string &point_of(std::uint32_t message) const { return context_.messages[message].verdict.point; }

  const SearchContext &context_;
  const Locality &locality_;
  FoundConflicts conflicts_;
  std::map<std::uint32_t, std::vector<std::size_t>> by_message_;
  std::map<std::uint32_t, NumberSet> counted_;  ///< by message, what a limit counts and was looked at
  NumberSet members_;                           ///< parties and triggers of all conflicts
  std::set<NumberSet> explored_;
  std::set<std::string> unfinished_points_;
};

}  // namespace diagnosis

#endif
