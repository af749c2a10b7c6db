#include "diagnosis/conflict_search.h"

#include <algorithm>

#include "diagnosis/confirmation.h"
#include "diagnosis/exhaustive_search.h"
#include "diagnosis/limit.h"
#include "diagnosis/limit_search.h"
#include "diagnosis/minimisation.h"

namespace diagnosis {
namespace {

// Large enough that a commit without faults takes few questions, small enough that one with many takes little time.
constexpr std::size_t kBundleSize = 48;

// Two VPNs with an attachment and a neighbour each have 36 closed sets.
constexpr std::uint64_t kMostEnumeratedSets = 256;
constexpr std::uint64_t kMostPresenceSets = 512;

// Rows of the whole commit's independent sets: each takes a question.
constexpr std::size_t kMostSets = 64;

// The pairs of a limit's parties are asked about by themselves where these are so few.
constexpr std::size_t kMostPairedParties = 8;

// To cover the pairs of more parties would take longer than to ask.
constexpr std::size_t kMostCoveredParties = 4096;

NumberSet members_of(const FoundConflicts &conflicts) {
  NumberSet members;
  for (const FoundConflict &conflict : conflicts) members = united(members, conflict.innermost());
  return members;
}

}  // namespace

void ConflictSearch::find_all() {
  for (const NumberSet &bundle : locality_.bundles(kBundleSize)) {
    if (context_.oracle.has_ended()) return;
    find_among(bundle);
  }
  std::size_t known = 0;
  do {
    known = conflicts_.size();
    explore_neighborhoods();
    explore_independent_sets(context_.entries.all());
  } while (conflicts_.size() != known && !context_.oracle.has_ended());
  find_other_triggers();
}

/// Finds what the entries draw, at each validation point until it accepts what is left.
void ConflictSearch::find_among(const NumberSet &set) {
  if (set.empty()) return;
  const std::optional<NumberSet> answer = context_.oracle.ask({set, {}});
  if (!answer) return;
  std::set<std::string> points;
  for (const std::uint32_t message : *answer) points.insert(point_of(message));
  for (const std::string &point : points) find_at(point, set);
}

/// Finds what the entries draw at a point, until it accepts what is left: only a fault of the same point hides another.
void ConflictSearch::find_at(const std::string &point, NumberSet left) {
  while (!left.empty()) {
    const std::optional<NumberSet> answer = context_.oracle.ask({left, {}});
    if (!answer) return;
    const NumberSet asked = left;
    for (const std::uint32_t message : *answer) {
      if (point_of(message) != point) continue;
      explain(asked, message);
      const FoundConflict *conflict = explanation_within(asked, message);
      if (conflict == nullptr) return;
      left = without_parties(left, *conflict);
    }
    if (left.size() == asked.size()) return;
  }
}

/// Finds what is said of the entries as they are, by the point or by any.
void ConflictSearch::look_at(const NumberSet &set, const std::string *point) {
  const std::optional<NumberSet> answer = set.empty() ? NumberSet{} : context_.oracle.ask({set, {}});
  if (!answer) return;
  for (const std::uint32_t message : *answer) {
    if (point == nullptr || point_of(message) == *point) explain(set, message);
  }
}

bool ConflictSearch::is_known_within(const NumberSet &set, std::uint32_t message) const {
  const auto known = by_message_.find(message);
  return known != by_message_.end() && std::any_of(known->second.begin(), known->second.end(), [&](std::size_t number) {
           return is_subset(conflicts_[number].entries, set);
         });
}

// Of a limit so few parties may be missing that the others are too many.
const FoundConflict *ConflictSearch::explanation_within(const NumberSet &set, std::uint32_t message) const {
  const auto known = by_message_.find(message);
  if (known == by_message_.end()) return nullptr;
  const bool counts = context_.messages[message].counts();
  for (const std::size_t number : known->second) {
    const FoundConflict &conflict = conflicts_[number];
    const auto has_too_many = [&] { return minus(conflict.parties, set).size() < conflict.surplus(); };
    if (is_subset(conflict.entries, set) || (counts && has_too_many())) return &conflict;
  }
  return nullptr;
}

/// Finds what draws the message, where it is not known within the set. Precondition: the set draws it.
void ConflictSearch::explain(const NumberSet &set, std::uint32_t message) {
  if (context_.messages[message].counts()) explain_limit(set, message);
  if (explanation_within(set, message) == nullptr) record(minimise(context_, set, message));
}

/// What a limit counts is looked at once.
void ConflictSearch::explain_limit(const NumberSet &set, std::uint32_t message) {
  NumberSet &looked_at = counted_[message];
  NumberSet counted;
  for (const NumberSet &group : counted_groups(context_, set, message)) counted = united(counted, group);
  if (is_subset(counted, looked_at)) return;
  looked_at = united(looked_at, counted);
  for (FoundConflict &conflict : find_exceeded_limits(context_, set, message)) record(std::move(conflict));
}

/// Keeps the conflict where it is new and was asked about in full. False where it is not kept.
bool ConflictSearch::record(FoundConflict conflict) {
  if (context_.oracle.has_ended()) return false;
  std::vector<std::size_t> &known = by_message_[conflict.message];
  const bool is_known = std::any_of(known.begin(), known.end(),
                                    [&](std::size_t number) { return conflicts_[number].entries == conflict.entries; });
  if (is_known) return false;
  find_triggers(context_, conflict);
  conflict.is_confirmed = is_drawn_beside(context_, conflict, members_);
  if (context_.oracle.has_ended()) return false;
  known.push_back(conflicts_.size());
  members_ = united(members_, conflict.innermost());
  conflicts_.push_back(std::move(conflict));
  context_.oracle.findings = conflicts_.size();
  return true;
}

NumberSet ConflictSearch::without_parties(const NumberSet &set, const FoundConflict &conflict) const {
  NumberSet gone = intersection(conflict.parties.empty() ? conflict.triggers : conflict.parties, set);
  if (conflict.too_many > 1 || context_.messages[conflict.message].counts()) {
    gone.erase(gone.begin(), gone.end() - static_cast<std::ptrdiff_t>(std::min(gone.size(), conflict.surplus())));
  }
  return context_.entries.without(set, gone);
}

void ConflictSearch::explore_neighborhoods() {
  for (std::size_t i = 0; i < conflicts_.size() && !context_.oracle.has_ended(); ++i) {
    const NumberSet parties = conflicts_[i].innermost();
    const bool is_limit = context_.messages[conflicts_[i].message].counts();
    const NumberSet region = is_limit ? parties : locality_.around(parties);
    if (!explored_.insert(region).second) continue;
    if (is_limit) {
      look_at_pairs(region);
    } else {
      explore(region);
    }
  }
}

// Wherever as many as a limit allows are asked about together, one of them may mend what two others have.
void ConflictSearch::look_at_pairs(const NumberSet &parties) {
  if (parties.size() > kMostPairedParties) return;
  for (const std::uint32_t one : parties) {
    for (const std::uint32_t other : parties) {
      const bool is_looked_at = is_touched(context_, one) || is_touched(context_, other);
      if (one < other && is_looked_at) look_at(context_.entries.closure({one, other}));
    }
  }
}

bool ConflictSearch::is_small(const NumberSet &set) const {
  return set.size() <= kMostMaskedEntries &&
         count_closed_sets(context_.entries, set, kMostEnumeratedSets + 1) <= kMostEnumeratedSets;
}

void ConflictSearch::explore(const NumberSet &region) {
  if (is_small(region)) {
    for (FoundConflict &conflict : find_all_by_enumeration(context_, region)) record(std::move(conflict));
  } else if (!explore_presence(region)) {
    explore_independent_sets(region);
  }
  explore_what_is_in_force(region);
}

// A fault in force is drawn where something makes the library look, which may be anywhere in the commit.
void ConflictSearch::explore_what_is_in_force(const NumberSet &region) {
  NumberSet before = region;
  std::erase_if(before, [&](std::uint32_t entry) { return context_.entries.node(entry).before == nullptr; });
  if (before.empty()) return;
  const std::optional<NumberSet> answer = context_.oracle.ask({before, {}, true});
  if (!answer || answer->empty()) return;
  if (!is_small(before)) {
    const auto is_known = [&](std::uint32_t message) { return is_known_within(context_.entries.all(), message); };
    if (!std::all_of(answer->begin(), answer->end(), is_known)) leave_unfinished(region);
    return;
  }
  for (const FoundConflict &fault : find_all_by_enumeration(context_, before, true)) {
    const std::vector<std::size_t> &known = by_message_[fault.message];
    const bool is_known = std::any_of(known.begin(), known.end(), [&](std::size_t number) {
      return is_subset(fault.parties, conflicts_[number].innermost());
    });
    if (!is_known) find_triggers_of(fault.entries, fault.message, nullptr);
  }
}

/// Asks about the region with each choice of its known parties. False where these are too many.
bool ConflictSearch::explore_presence(const NumberSet &region) {
  for (std::size_t known = 0; known != conflicts_.size();) {
    known = conflicts_.size();
    const NumberSet members = intersection(members_, region);
    if (members.size() > kMostMaskedEntries) return false;
    if (count_closed_sets(context_.entries, members, kMostPresenceSets + 1) > kMostPresenceSets) return false;
    std::vector<NumberSet> choices = closed_sets(context_.entries, members);
    std::reverse(choices.begin(), choices.end());
    for (const NumberSet &present : choices) {
      if (context_.oracle.has_ended()) return true;
      const NumberSet set = context_.entries.without(region, minus(members, present));
      const std::optional<NumberSet> answer = set.empty() ? NumberSet{} : context_.oracle.ask({set, {}});
      if (!answer) return true;
      for (const std::uint32_t message : *answer) {
        explain(set, message);
      }
    }
  }
  return true;
}

// Another fault of the same point may hide one, and what is party of any fault may mend it: what is known is taken out
// in every way all at once, and then point by point, so that more is left beside it.
void ConflictSearch::explore_independent_sets(const NumberSet &set) {
  std::size_t known = 0;
  do {
    known = conflicts_.size();
    look_at(set);
    FoundConflicts counting;
    for (const FoundConflict &conflict : conflicts_) {
      if (is_subset(conflict.entries, set)) counting.push_back(conflict);
    }
    drop_mended(context_, counting);
    std::map<std::string, FoundConflicts> of_point;
    for (const FoundConflict &conflict : counting) of_point[point_of(conflict.message)].push_back(conflict);
    find_among(context_.entries.without(set, members_of(counting)));
    ask_beside(set, counting, [this](const NumberSet &beside) { find_among(beside); });
    for (const auto &[at, conflicts] : of_point) {
      const std::string &point = at;  // a lambda captures no structured binding in every compiler
      if (of_point.size() > 1) ask_beside(set, conflicts, [&](const NumberSet &beside) { find_at(point, beside); });
      look_beside(set, point, conflicts);
    }
  } while (conflicts_.size() != known && !context_.oracle.has_ended());
}

// Faults of one entry and limits are left standing, each and both: they may hide nothing of what else is wrong with the
// entry, with all that a group or VPN holds, or with what the limit counts.
void ConflictSearch::look_beside(const NumberSet &set, const std::string &point, const FoundConflicts &conflicts) {
  const auto is_limit = [this](const FoundConflict &conflict) { return context_.messages[conflict.message].counts(); };
  const auto is_of_one = [&](const FoundConflict &conflict) {
    const NumberSet members = conflict.innermost();
    const auto holds_others = [this](std::uint32_t member) { return context_.entries[member].end > member + 1; };
    return !is_limit(conflict) && (members.size() == 1 || std::any_of(members.begin(), members.end(), holds_others));
  };
  FoundConflicts no_limits = conflicts;
  FoundConflicts of_many = conflicts;
  const std::size_t limits = std::erase_if(no_limits, is_limit);
  const std::size_t of_one = std::erase_if(of_many, is_of_one);
  const auto look = [&](const NumberSet &beside) { look_at(beside, &point); };
  if (limits != 0) ask_beside(set, no_limits, look);
  if (of_one != 0) ask_beside(set, of_many, look);
  std::erase_if(of_many, is_limit);
  if (limits != 0 && of_one != 0) ask_beside(set, of_many, look);
}

/// Asks about the set with the parties of the conflicts in sets that keep to them, until something new is found. Each
/// party is asked about beside all the rest once; what parties of a large commit have with each other is asked about
/// beside what is near them.
void ConflictSearch::ask_beside(const NumberSet &set, const FoundConflicts &conflicts,
                                const std::function<void(const NumberSet &)> &ask) {
  NumberSet members;
  std::vector<Bound> bounds;
  for (const FoundConflict &conflict : conflicts) {
    bounds.push_back(bound_of(context_, conflict));
    members.insert(members.end(), bounds.back().parties.begin(), bounds.back().parties.end());
  }
  normalise(members);
  IndependentSets independent{{{}}, false};
  if (members.size() <= kMostCoveredParties) {
    independent = independent_sets(bounds, {}, kMostSets, [this] { return context_.oracle.has_ended(); });
  }
  if (!independent.is_covering) {
    for (const FoundConflict &conflict : conflicts) unfinished_points_.insert(point_of(conflict.message));
  }
  const NumberSet near = context_.locality == nullptr ? set : context_.entries.closure(context_.scope(members));
  NumberSet seen;
  const std::size_t known = conflicts_.size();
  for (const NumberSet &beside : independent.sets) {
    if (context_.oracle.has_ended() || conflicts_.size() != known) return;
    const bool brings_new = !is_subset(beside, seen) || beside.empty();
    seen = united(seen, beside);
    const NumberSet asked = context_.entries.without(set, minus(members, beside));
    ask(brings_new ? asked : intersection(asked, near));
  }
}

void ConflictSearch::leave_unfinished(const NumberSet &set) {
  for (const FoundConflict &conflict : conflicts_) {
    if (is_subset(conflict.entries, set)) unfinished_points_.insert(point_of(conflict.message));
  }
}

void ConflictSearch::find_other_triggers() {
  std::set<std::pair<std::uint32_t, NumberSet>> done;
  for (std::size_t i = 0; i < conflicts_.size() && !context_.oracle.has_ended(); ++i) {
    const FoundConflict conflict = conflicts_[i];
    if (conflict.triggers.empty()) continue;
    if (!done.insert({conflict.message, conflict.parties}).second) continue;
    const element::SchemaNode *kind = context_.entries.node(conflict.triggers.front()).schema;
    find_triggers_of(context_.entries.closure(conflict.parties), conflict.message, kind);
  }
}

// What else makes the library look at a fault in force.
void ConflictSearch::find_triggers_of(const NumberSet &core, std::uint32_t message, const element::SchemaNode *kind) {
  std::size_t asked = 0;
  for (const std::uint32_t entry : likely_triggers(context_, core, kind)) {
    const NumberSet set = context_.entries.closure(united(core, {entry}));
    if (is_known_within(set, message)) continue;
    if (++asked > kMostTriggers || context_.oracle.has_ended()) return;
    if (context_.oracle.reproduces(set, message)) record(minimise(context_, set, message));
  }
}

}  // namespace diagnosis
