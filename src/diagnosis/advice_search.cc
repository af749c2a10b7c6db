#include "diagnosis/advice_search.h"

#include <algorithm>
#include <map>
#include <numeric>

#include "diagnosis/conflict_search.h"

namespace diagnosis {
namespace {

// A commit of so few parts is asked about with every set of them taken back, if need be.
constexpr std::size_t kFewParts = 12;
constexpr std::size_t kMostAskedOfFew = 4096;
constexpr std::size_t kMostAsked = 200;
constexpr std::size_t kMostSurroundings = 8;

/// The part that is the entry's own.
std::uint32_t own_part(const SearchContext &context, std::uint32_t entry) {
  for (const std::uint32_t part : context.changes.parts_at(entry)) {
    if (context.changes[part].node == context.entries[entry].node) return part;
  }
  return kNone;
}

}  // namespace

AdviceSearch::AdviceSearch(const SearchContext &context, const FoundConflicts &conflicts,
                           const std::vector<ConflictGroup> &groups)
    : context_(context), conflicts_(conflicts), groups_(groups), group_of_(conflicts.size()) {
  for (std::size_t group = 0; group < groups.size(); ++group) {
    for (const std::size_t conflict : groups[group]) group_of_[conflict] = group;
  }
  for (const FoundConflict &conflict : conflicts) messages_.push_back(conflict.message);
  normalise(messages_);
}

const std::vector<Corrections> &AdviceSearch::for_each() {
  for (std::size_t group = corrections_.size(); group < groups_.size(); ++group) {
    corrections_.push_back(context_.oracle.has_ended() ? Corrections{} : for_groups({group}));
  }
  return corrections_;
}

Corrections AdviceSearch::for_all() {
  for_each();
  if (context_.oracle.has_ended()) return {};
  if (groups_.size() == 1) return corrections_.front();
  if (context_.changes.size() > kFewParts) return together();
  const NumberSet all = context_.entries.all();
  const auto helps = [&](const NumberSet &reverted) { return is_silent(all, reverted); };
  return find_corrections(context_, context_.changes.all(), helps, kMostAskedOfFew);
}

/// Findings that share no part are repaired one by one; the whole is asked once.
Corrections AdviceSearch::together() {
  Corrections result;
  NumberSet reverted;
  for (const std::vector<std::size_t> &groups : groups_that_share_parts()) {
    const Corrections own = groups.size() == 1 ? corrections_[groups.front()] : for_groups(groups);
    if (own.sets.empty()) return {};
    reverted = united(reverted, own.sets.front());
  }
  if (!reverted.empty() && is_silent(context_.entries.all(), reverted)) result.sets.push_back(std::move(reverted));
  result.has_all = false;
  return result;
}

std::vector<std::vector<std::size_t>> AdviceSearch::groups_that_share_parts() const {
  std::vector<std::size_t> leaders(groups_.size());
  std::iota(leaders.begin(), leaders.end(), std::size_t{0});
  const auto leader = [&leaders](std::size_t group) {
    while (leaders[group] != group) group = leaders[group] = leaders[leaders[group]];
    return group;
  };
  std::map<std::uint32_t, std::size_t> first;
  for (std::size_t group = 0; group < groups_.size(); ++group) {
    for (const std::uint32_t part : candidates(entries_of({group}))) {
      leaders[leader(group)] = leader(first.try_emplace(part, group).first->second);
    }
  }
  std::map<std::size_t, std::vector<std::size_t>> shared;
  for (std::size_t group = 0; group < groups_.size(); ++group) shared[leader(group)].push_back(group);
  std::vector<std::vector<std::size_t>> result;
  for (auto &[first_group, groups] : shared) result.push_back(std::move(groups));
  return result;
}

Corrections AdviceSearch::for_groups(const std::vector<std::size_t> &groups) const {
  const std::vector<NumberSet> around = surroundings(groups);
  const bool is_few = context_.changes.size() <= kFewParts;
  const FoundConflict &first = conflicts_[groups_[groups.front()].front()];
  if (!is_few && groups.size() == 1 && context_.messages[first.message].counts())
    return for_limit(groups.front(), around);
  const auto is_enough = [&](const NumberSet &reverted) { return helps(groups, around, reverted); };
  return find_corrections(context_, candidates(entries_of(groups)), is_enough, is_few ? kMostAskedOfFew : kMostAsked);
}

/// The fewest additions, or changes in place, of what a limit counts.
Corrections AdviceSearch::for_limit(std::size_t group, const std::vector<NumberSet> &around) const {
  const FoundConflict &conflict = conflicts_[groups_[group].front()];
  NumberSet parts;
  for (const std::uint32_t party : conflict.parties) {
    const std::uint32_t part = own_part(context_, party);
    if (part != kNone) parts.push_back(part);
  }
  Corrections result;
  result.choices = parts;
  const auto first = [&](std::size_t number) {
    return context_.changes.closure(NumberSet(parts.end() - static_cast<std::ptrdiff_t>(number), parts.end()));
  };
  for (std::size_t number = std::min(conflict.too_many, parts.size()); number > 0 && number <= parts.size(); ++number) {
    if (context_.oracle.has_ended() || number > conflict.too_many + kMostSurroundings) return result;
    const NumberSet reverted = first(number);
    if (!helps({group}, around, reverted)) continue;
    result.sets.push_back(reverted);
    result.enough = number < parts.size() ? number : 0;
    result.has_all = false;
    break;
  }
  return result;
}

NumberSet AdviceSearch::entries_of(const std::vector<std::size_t> &groups) const {
  NumberSet entries;
  for (const std::size_t group : groups) {
    for (const std::size_t conflict : groups_[group]) entries = united(entries, conflicts_[conflict].entries);
  }
  return entries;
}

NumberSet AdviceSearch::candidates(const NumberSet &entries) const {
  if (context_.changes.size() <= kFewParts) return context_.changes.all();
  NumberSet parts;
  for (const std::uint32_t entry : context_.entries.innermost(entries)) {
    parts = united(parts, context_.changes.parts_at(entry));
  }
  return parts;
}

std::vector<NumberSet> AdviceSearch::surroundings(const std::vector<std::size_t> &groups) const {
  const NumberSet own_entries = entries_of(groups);
  const NumberSet own = context_.entries.innermost(own_entries);
  const NumberSet scope = context_.scope(own_entries);
  NumberSet others;
  std::vector<Bound> bounds;
  for (std::size_t i = 0; i < conflicts_.size(); ++i) {
    const bool is_own = std::find(groups.begin(), groups.end(), group_of_[i]) != groups.end();
    if (is_own || intersection(conflicts_[i].parties, scope).empty()) continue;
    others = united(others, conflicts_[i].parties);
    bounds.push_back(bound_of(conflicts_[i]));
  }
  others = minus(others, own);
  std::vector<NumberSet> result;
  for (const NumberSet &beside : independent_sets(bounds, own, kMostSurroundings).sets) {
    const NumberSet rest = context_.entries.without(scope, minus(others, beside));
    result.push_back(context_.entries.closure(united(rest, own_entries)));
  }
  return result;
}

NumberSet AdviceSearch::messages_of(const std::vector<std::size_t> &groups) const {
  NumberSet messages;
  for (const std::size_t group : groups) {
    for (const std::size_t conflict : groups_[group]) messages.push_back(conflicts_[conflict].message);
  }
  normalise(messages);
  return messages;
}

// Beside what the findings need, others may be drawn: these are told by themselves and may stay. The whole commit shows
// what would come new with parties of other findings.
bool AdviceSearch::helps(const std::vector<std::size_t> &groups, const std::vector<NumberSet> &around,
                         const NumberSet &reverted) const {
  const NumberSet own = messages_of(groups);
  const bool is_gone = std::all_of(around.begin(), around.end(), [&](const NumberSet &entries) {
    const std::optional<NumberSet> answer = context_.oracle.ask({entries, reverted});
    return answer && intersection(*answer, own).empty() && is_subset(*answer, messages_);
  });
  if (!is_gone || context_.locality != nullptr) return is_gone;
  const std::optional<NumberSet> whole = context_.oracle.ask({context_.entries.all(), reverted});
  return whole && is_subset(*whole, messages_);
}

bool AdviceSearch::is_silent(const NumberSet &entries, const NumberSet &reverted) const {
  const std::optional<NumberSet> answer = context_.oracle.ask({entries, reverted});
  return answer && answer->empty();
}

}  // namespace diagnosis
