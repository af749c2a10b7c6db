#include "diagnosis/limit_search.h"

#include <algorithm>
#include <utility>

#include "diagnosis/confirmation.h"
#include "diagnosis/limit_number.h"
#include "diagnosis/limit_parties.h"
#include "diagnosis/minimisation.h"

namespace diagnosis {
namespace {

// Where every set of entries was asked about, every choice of so few parties is looked at.
constexpr std::size_t kFewParties = 12;

/// The conflicts of what is counted together in the whole commit or, where this does not draw the message, in the set.
void add_conflicts(const SearchContext &context, const Limit &limit, std::uint32_t message, std::vector<Share> group,
                   FoundConflicts &conflicts) {
  const auto is_too_much_alone = [&limit](const Share &share) { return share.weight > limit.allowed(); };
  for (const Share &share : group) {
    const NumberSet own = context.entries.closure({share.entry});
    if (!is_too_much_alone(share) || !context.oracle.reproduces(own, message)) continue;
    conflicts.push_back(minimise(context, own, message));
  }
  std::erase_if(group, is_too_much_alone);
  if (sum_of(group) <= limit.allowed()) return;
  if (auto conflict = find_limit_parties(context, message, group)) {
    conflicts.push_back(*std::move(conflict));
  }
}

bool shares_entry(const std::vector<Share> &group, const std::vector<Share> &other) {
  return !intersection(entries_of(group), entries_of(other)).empty();
}

void take_in(FoundConflict &conflict, const FoundConflict &other) {
  conflict.exceeding.insert(conflict.exceeding.end(), other.exceeding.begin(), other.exceeding.end());
  conflict.entries = united(conflict.entries, other.entries);
  conflict.parties = united(conflict.parties, other.parties);
  conflict.triggers = minus(united(conflict.triggers, other.triggers), conflict.parties);
  conflict.too_many = std::max(conflict.too_many, other.too_many);
  conflict.enough_of_any = 0;
  conflict.is_minimal = conflict.is_minimal && other.is_minimal;
}

/// Takes in all conflicts of the same limit that share a party with this one, or with one that was taken in.
void take_in_all(FoundConflict &conflict, FoundConflicts &others) {
  const auto is_same = [&conflict](const FoundConflict &other) {
    return other.message == conflict.message && !intersection(other.parties, conflict.parties).empty();
  };
  while (true) {
    const auto same = std::find_if(others.begin(), others.end(), is_same);
    if (same == others.end()) return;
    take_in(conflict, *same);
    others.erase(same);
  }
}

/// Counts again how many are too many of parties that were found in parts.
void count_parties(const SearchContext &context, FoundConflict &conflict) {
  if (conflict.enough_of_any != 0) return;
  if (context.is_enumerated && conflict.parties.size() <= kFewParties) {
    conflict.too_many = fewest_in_each(conflict);
  } else {
    count_too_many(context, conflict);
  }
}

/// So many parties are in the running configuration that they may be too many there.
bool may_be_in_force(const SearchContext &context, const FoundConflict &conflict) {
  const auto before = std::count_if(conflict.parties.begin(), conflict.parties.end(),
                                    [&](std::uint32_t party) { return context.entries.node(party).before != nullptr; });
  const bool is_counted = conflict.enough_of_any != 0 && conflict.enough_of_any == conflict.too_many;
  return !is_counted || static_cast<std::size_t>(before) + conflict.too_many > conflict.parties.size();
}

}  // namespace

std::vector<NumberSet> counted_groups(const SearchContext &context, const NumberSet &set, std::uint32_t message) {
  const Limit limit(context, message);
  std::vector<NumberSet> groups;
  for (const std::vector<Share> &group : limit.exceeding_groups(set)) groups.push_back(entries_of(group));
  return groups;
}

FoundConflicts find_exceeded_limits(const SearchContext &context, const NumberSet &entries, std::uint32_t message) {
  const Limit limit(context, message);
  FoundConflicts conflicts;
  const NumberSet commit = context.all();
  const std::vector<std::vector<Share>> of_all = limit.exceeding_groups(commit);
  const auto is_drawn_by = [&](const std::vector<Share> &group) {
    return context.oracle.reproduces(commit, message) ||
           context.oracle.reproduces(context.entries.closure(entries_of(group)), message);
  };
  for (std::vector<Share> &group : limit.exceeding_groups(entries)) {
    const auto whole = std::find_if(of_all.begin(), of_all.end(),
                                    [&group](const std::vector<Share> &all) { return shares_entry(all, group); });
    const bool is_whole = whole != of_all.end() && is_drawn_by(*whole);
    add_conflicts(context, limit, message, is_whole ? *whole : std::move(group), conflicts);
  }
  return conflicts;
}

Bound bound_of(const SearchContext &context, const FoundConflict &conflict) {
  Bound bound{conflict.innermost()};
  bound.most = bound.parties.size() - std::min(bound.parties.size(), conflict.surplus());
  if (!context.messages[conflict.message].counts()) return bound;
  const Limit limit(context, conflict.message);
  if (!limit.is_known()) return bound;
  for (const std::uint32_t party : bound.parties) bound.weights.push_back(limit.weight(party));
  bound.most = limit.allowed();
  return bound;
}

void join_limits(const SearchContext &context, FoundConflicts &conflicts) {
  FoundConflicts joined;
  for (FoundConflict &conflict : conflicts) {
    if (context.messages[conflict.message].counts()) {
      if (conflict.exceeding.empty()) conflict.exceeding.push_back(conflict.entries);
      take_in_all(conflict, joined);
    }
    joined.push_back(std::move(conflict));
  }
  conflicts = std::move(joined);
  for (FoundConflict &conflict : conflicts) {
    if (!context.messages[conflict.message].counts() || conflict.parties.empty()) continue;
    count_parties(context, conflict);
    if (!context.is_enumerated) correct_too_many(context, conflicts, conflict);
    conflict.is_preexisting = may_be_in_force(context, conflict) &&
                              is_in_force(context, context.entries.closure(conflict.parties), conflict.message);
  }
}

}  // namespace diagnosis
