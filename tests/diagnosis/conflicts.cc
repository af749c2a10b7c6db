#include "tests/diagnosis/conflicts.h"

#include <algorithm>
#include <bit>
#include <map>

#include "tests/diagnosis/judged_element.h"

namespace brute_force {
namespace {

using diagnosis::ChangeStatus;

bool is_same_but_for_triggers(const Conflict &one, const Conflict &other) {
  return one.message == other.message && one.parties == other.parties && one.is_in_force && other.is_in_force;
}

bool count_or_list_the_same(const Conflict &one, const Conflict &other) {
  if (one.message != other.message) return false;
  if (is_of_listing_rule(one.message)) return true;
  return is_of_counting_rule(one.message) && (one.parties & other.parties) != 0;
}

void merge_into(Conflict &one, const Conflict &other) {
  one.set |= other.set;
  one.parties |= other.parties;
  one.triggers = (one.triggers | other.triggers) & ~one.parties;
  one.minimal.insert(one.minimal.end(), other.minimal.begin(), other.minimal.end());
}

/// Merges until no two can be merged.
template <typename CanMerge>
std::vector<Conflict> merged(std::vector<Conflict> conflicts, CanMerge can_merge) {
  for (std::size_t one = 0; one < conflicts.size(); ++one) {
    for (std::size_t other = one + 1; other < conflicts.size(); ++other) {
      if (!can_merge(conflicts[one], conflicts[other])) continue;
      merge_into(conflicts[one], conflicts[other]);
      conflicts.erase(conflicts.begin() + static_cast<std::ptrdiff_t>(other));
      other = one;
    }
  }
  return conflicts;
}

/// The fewest parties one of which is in every minimal set of a limit.
std::size_t enough_to_leave_out(const Conflict &conflict) {
  std::size_t fewest = static_cast<std::size_t>(std::popcount(conflict.parties));
  for (EntrySet left_out = conflict.parties; left_out != 0; left_out = (left_out - 1) & conflict.parties) {
    const bool is_in_each = std::all_of(conflict.minimal.begin(), conflict.minimal.end(),
                                        [left_out](EntrySet set) { return (set & left_out) != 0; });
    if (is_in_each) fewest = std::min(fewest, static_cast<std::size_t>(std::popcount(left_out)));
  }
  return fewest;
}

}  // namespace

std::set<Message> answers(const Configurations &commit) {
  std::set<Message> said;
  for (const host::PointVerdict &answer : JudgedElement::instance().ask_all_points(commit)) {
    if (answer.answer != host::Answer::accepted) said.insert(message_of(answer));
  }
  return said;
}

ConflictSearch::ConflictSearch(const Configurations &commit) : commit_(commit), entries_(commit) {
  ask_about_all();
  conflicts_ = minimal_conflicts();
  drop_mended();
  for (Conflict &conflict : conflicts_) {
    if (!is_of_counting_rule(conflict.message)) continue;
    conflict.is_in_force = is_drawn_by_what_is_in_force(conflict.message, entries_.with_needs(conflict.parties));
    conflict.enough = enough_to_leave_out(conflict);
  }
}

void ConflictSearch::ask_about_all() {
  for (EntrySet set = 0; set <= entries_.all(); ++set) {
    if (entries_.is_closed(set)) answers_about(set);
  }
}

const std::set<Message> &ConflictSearch::answers_about(EntrySet set) {
  const auto known = answers_.find(set);
  if (known != answers_.end()) return known->second;
  return answers_.emplace(set, answers(entries_.restricted_to(set))).first->second;
}

std::vector<Conflict> ConflictSearch::minimal_conflicts() {
  std::vector<EntrySet> by_size;
  for (const auto &[set, said] : answers_) by_size.push_back(set);
  std::sort(by_size.begin(), by_size.end(), [](EntrySet a, EntrySet b) {
    return std::popcount(a) != std::popcount(b) ? std::popcount(a) < std::popcount(b) : a < b;
  });
  std::map<Message, std::vector<EntrySet>> minimal;
  for (const EntrySet set : by_size) {
    for (const Message &message : answers_.at(set)) {
      std::vector<EntrySet> &sets = minimal[message];
      const bool holds_smaller =
          std::any_of(sets.begin(), sets.end(), [set](EntrySet smaller) { return (smaller & set) == smaller; });
      if (!holds_smaller) sets.push_back(set);
    }
  }
  std::vector<Conflict> conflicts;
  for (const auto &[message, sets] : minimal) {
    for (const EntrySet set : sets) conflicts.push_back(with_triggers(message, set));
  }
  conflicts = merged(std::move(conflicts), is_same_but_for_triggers);
  return merged(std::move(conflicts), count_or_list_the_same);
}

// A trigger is an entry that the commit touches and without which, and without the triggers found before, the fault is
// in force. What the commit removes is looked at first: where it and an entry that stays do the same, it is the
// trigger.
Conflict ConflictSearch::with_triggers(const Message &message, EntrySet set) const {
  Conflict conflict{message, set, entries_.innermost(set)};
  if (is_of_counting_rule(message)) conflict.minimal.push_back(set);
  for (const ChangeStatus status : {ChangeStatus::removed, ChangeStatus::added, ChangeStatus::changed}) {
    for (std::size_t entry = 0; entry < entries_.size(); ++entry) {
      if (!holds(conflict.parties, entry) || entries_.status(entry) != status) continue;
      if (!is_drawn_by_what_is_in_force(message, set & ~conflict.triggers & ~bit(entry))) continue;
      conflict.triggers |= bit(entry);
    }
  }
  take_triggers_out(conflict);
  conflict.is_in_force = is_drawn_by_what_is_in_force(message, entries_.with_needs(conflict.parties));
  return conflict;
}

// What stands around a trigger is a party only where the fault is its own.
void ConflictSearch::take_triggers_out(Conflict &conflict) const {
  EntrySet rest = conflict.set & ~conflict.triggers;
  EntrySet around = entries_.with_needs(conflict.triggers) & ~conflict.triggers;
  for (std::size_t entry = entries_.size(); entry-- > 0;) {
    const EntrySet candidates = around & entries_.innermost(rest);
    if (!holds(candidates, entry)) continue;
    if (is_drawn_by_what_is_in_force(conflict.message, rest & ~bit(entry))) rest &= ~bit(entry);
  }
  conflict.parties = entries_.innermost(rest);
}

bool ConflictSearch::is_drawn_by_what_is_in_force(const Message &message, EntrySet set) const {
  Configurations first_commit{element::Tree(commit_.running.schema()), entries_.restricted_to(set).running};
  return answers(first_commit).count(message) != 0;
}

void ConflictSearch::drop_mended() {
  for (;;) {
    std::vector<Conflict> left;
    for (const Conflict &conflict : conflicts_) {
      if (!is_mended(conflict)) left.push_back(conflict);
    }
    if (left.size() == conflicts_.size()) return;
    conflicts_ = std::move(left);
  }
}

/// Whether the message goes away beside all entries that are party of no other conflict. What a limit counts may have
/// conflicts with each other that hide it; it is exceeded where any of its minimal sets draws it beside the rest.
bool ConflictSearch::is_mended(const Conflict &conflict) {
  EntrySet parties_of_others = 0;
  for (const Conflict &other : conflicts_) {
    if (&other != &conflict) parties_of_others |= other.members();
  }
  const auto is_drawn = [&](EntrySet set, EntrySet others) {
    const EntrySet beside = entries_.with_needs(set | (entries_.all() & ~others));
    return answers_about(beside).count(conflict.message) != 0;
  };
  if (is_drawn(conflict.set, parties_of_others)) return false;
  return std::none_of(conflict.minimal.begin(), conflict.minimal.end(),
                      [&](EntrySet set) { return is_drawn(set, parties_of_others | conflict.members()); });
}

}  // namespace brute_force
