#include "diagnosis/advice_search.h"

#include <algorithm>

#include "diagnosis/independent_sets.h"

namespace diagnosis {
namespace {

// A commit of so few parts is asked about with every set of them taken back, if need be.
constexpr std::size_t kFewParts = 12;
constexpr std::size_t kMostAskedOfFew = 4096;
constexpr std::size_t kMostAsked = 300;
constexpr std::size_t kMostSurroundings = 12;

Bound bound_of(const FoundConflict &conflict) {
  const std::size_t parties = conflict.parties.size();
  return {conflict.parties, parties - std::min(parties, conflict.too_many)};
}

}  // namespace

AdviceSearch::AdviceSearch(const SearchContext &context, const FoundConflicts &conflicts,
                           const std::vector<ConflictGroup> &groups)
    : context_(context), conflicts_(conflicts), groups_(groups) {}

Corrections AdviceSearch::for_finding(std::size_t group) const {
  const std::vector<NumberSet> around = surroundings(groups_[group]);
  const auto helps = [&](const NumberSet &reverted) {
    return std::all_of(around.begin(), around.end(),
                       [&](const NumberSet &entries) { return is_silent(entries, reverted); });
  };
  NumberSet entries;
  for (const std::size_t conflict : groups_[group]) entries = united(entries, conflicts_[conflict].entries);
  return find_corrections(context_, candidates(entries), helps,
                          context_.changes.size() <= kFewParts ? kMostAskedOfFew : kMostAsked);
}

Corrections AdviceSearch::for_all() const {
  const NumberSet all = context_.entries.all();
  NumberSet entries;
  for (const FoundConflict &conflict : conflicts_) entries = united(entries, conflict.entries);
  return find_corrections(
      context_, candidates(entries), [&](const NumberSet &reverted) { return is_silent(all, reverted); },
      context_.changes.size() <= kFewParts ? kMostAskedOfFew : kMostAsked);
}

NumberSet AdviceSearch::candidates(const NumberSet &entries) const {
  if (context_.changes.size() <= kFewParts) return context_.changes.all();
  NumberSet parts;
  for (const std::uint32_t entry : context_.entries.innermost(entries)) {
    parts = united(parts, context_.changes.parts_at(entry));
  }
  return parts;
}

std::vector<NumberSet> AdviceSearch::surroundings(const ConflictGroup &group) const {
  NumberSet own;
  NumberSet own_entries;
  NumberSet others;
  std::vector<Bound> bounds;
  for (std::size_t i = 0; i < conflicts_.size(); ++i) {
    const bool is_own = std::find(group.begin(), group.end(), i) != group.end();
    if (is_own) {
      own = united(own, conflicts_[i].innermost());
      own_entries = united(own_entries, conflicts_[i].entries);
    } else {
      others = united(others, conflicts_[i].parties);
      bounds.push_back(bound_of(conflicts_[i]));
    }
  }
  others = minus(others, own);
  std::vector<NumberSet> result;
  for (const NumberSet &beside : independent_sets(bounds, own, kMostSurroundings).sets) {
    const NumberSet rest = context_.entries.without(context_.entries.all(), minus(others, beside));
    result.push_back(context_.entries.closure(united(rest, own_entries)));
  }
  return result;
}

bool AdviceSearch::is_silent(const NumberSet &entries, const NumberSet &reverted) const {
  const std::optional<NumberSet> answer = context_.oracle.ask({entries, reverted});
  return answer && answer->empty();
}

}  // namespace diagnosis
