#include "diagnosis/advice_search.h"

#include <algorithm>
#include <functional>
#include <map>
#include <numeric>

#include "diagnosis/minimisation.h"
#include "diagnosis/port_use.h"

namespace diagnosis {
namespace {

// A commit of so few parts is asked about with every set of them taken back, if need be.
constexpr std::size_t kFewParts = 12;
constexpr std::size_t kMostAskedOfFew = 4096;
constexpr std::size_t kMostAsked = 200;

// Whether the whole commit needs each of more parts is not asked: each takes a question about all of it.
constexpr std::size_t kMostTriedAlone = 64;

/// The part that is the entry's own.
std::uint32_t own_part(const SearchContext &context, std::uint32_t entry) {
  for (const std::uint32_t part : context.changes.parts_at(entry)) {
    if (context.changes[part].node == context.entries[entry].node) return part;
  }
  return kNone;
}

std::size_t vlans_of(const std::optional<PortUse> &use) {
  std::size_t vlans = 0;
  for (const Vlans &range : use ? use->vlans : std::vector<Vlans>()) vlans += range.last - range.first + 1;
  return vlans;
}

/// How much taking back the entry's change is likely to free: its VLANs, as far as they are new.
std::ptrdiff_t freed(const Entries &entries, std::uint32_t entry) {
  const bool was_there = entries.node(entry).before != nullptr;
  const auto before = was_there ? static_cast<std::ptrdiff_t>(vlans_of(former_port_use(entries, entry))) : 0;
  return static_cast<std::ptrdiff_t>(vlans_of(port_use(entries, entry))) - before;
}

/// The parts of what a limit counts, those that take most of it first.
NumberSet parts_by_weight(const SearchContext &context, const NumberSet &parties) {
  std::vector<std::pair<std::ptrdiff_t, std::uint32_t>> by_weight;
  for (const std::uint32_t party : parties) {
    const std::uint32_t part = own_part(context, party);
    if (part != kNone) by_weight.emplace_back(-freed(context.entries, party), part);
  }
  std::sort(by_weight.begin(), by_weight.end());
  NumberSet order;
  for (const auto &[weight, part] : by_weight) order.push_back(part);
  return order;
}

NumberSet first_of(const RevertibleChanges &changes, const NumberSet &order, std::size_t number) {
  const std::size_t end = std::min(number, order.size());
  NumberSet set(order.begin(), order.begin() + static_cast<std::ptrdiff_t>(end));
  normalise(set);
  return changes.closure(set);
}

/// How many of the parts, the first ones in order, help; one more than there are where all do not. That more of them
/// help, too, is supposed.
std::size_t fewest_of(const RevertibleChanges &changes, const NumberSet &order,
                      const std::function<bool(const NumberSet &)> &helps) {
  std::size_t too_few = 0;
  std::size_t enough = order.size() + 1;
  while (enough - too_few > 1) {
    const std::size_t middle = too_few + (enough - too_few) / 2;
    (helps(first_of(changes, order, middle)) ? enough : too_few) = middle;
  }
  return enough;
}

/// The search ended before.
Corrections not_asked() {
  Corrections corrections;
  corrections.has_all = false;
  return corrections;
}

}  // namespace

AdviceSearch::AdviceSearch(const SearchContext &context, const FoundConflicts &conflicts,
                           const std::vector<ConflictGroup> &groups)
    : context_(context), conflicts_(conflicts), groups_(groups), check_(context, conflicts, groups) {}

const std::vector<Corrections> &AdviceSearch::for_each() {
  for (std::size_t group = corrections_.size(); group < groups_.size(); ++group) {
    corrections_.push_back(context_.oracle.has_ended() ? not_asked() : for_groups({group}));
  }
  return corrections_;
}

Corrections AdviceSearch::for_all() {
  for_each();
  if (context_.oracle.has_ended()) return not_asked();
  if (context_.changes.size() > kFewParts) return together();
  const auto effect = [&](const NumberSet &parts) {
    if (!silences_each(parts)) return Effect::unproven;
    return effect_of(check_.is_accepted_without(parts));
  };
  return find_corrections(context_, context_.changes.all(), effect, kMostAskedOfFew);
}

/// What is drawn by a conflict's own entries is not worth a question about the whole of a large commit.
bool AdviceSearch::silences_each(const NumberSet &parts) const {
  if (context_.locality == nullptr) return true;
  return std::none_of(conflicts_.begin(), conflicts_.end(), [&](const FoundConflict &conflict) {
    const std::optional<NumberSet> answer = context_.oracle.ask({conflict.entries, parts});
    return !answer || contains(*answer, conflict.message);
  });
}

// Findings that share no part are repaired one by one; what is drawn after that is repaired, too, limits among it.
Corrections AdviceSearch::together() {
  NumberSet parts;
  for (const Groups &groups : groups_that_share_parts()) {
    const Corrections own = groups.size() == 1 ? corrections_[groups.front()] : for_groups(groups);
    if (!own.sets.empty()) parts = united(parts, own.sets.front());
  }
  if (!repair_rest(parts)) return {};
  Corrections result;
  result.sets.push_back(without_needless(std::move(parts)));
  result.has_all = false;
  result.is_minimal = result.sets.front().size() == 1;
  return result;
}

/// Takes back more until the library accepts the rest; at last, all. False where the search ended before.
bool AdviceSearch::repair_rest(NumberSet &parts) const {
  while (!context_.oracle.has_ended()) {
    const std::optional<NumberSet> answer = context_.oracle.ask({context_.entries.all(), parts});
    if (!answer) return false;
    if (answer->empty()) return true;
    const std::uint32_t message = answer->front();
    const bool counts = context_.messages[message].counts();
    const NumberSet more = counts ? repair_of_limit(message, parts) : repair_of(message, parts);
    const std::size_t before = parts.size();
    parts = context_.changes.closure(united(parts, more));
    if (parts.size() == before) parts = context_.changes.all();
  }
  return false;
}

/// Of the parts that a known limit counts the fewest further ones that end it in the whole commit.
NumberSet AdviceSearch::repair_of_limit(std::uint32_t message, const NumberSet &parts) const {
  NumberSet order;
  for (const FoundConflict &conflict : conflicts_) {
    if (conflict.message == message) order = parts_by_weight(context_, conflict.parties);
  }
  std::erase_if(order, [&](std::uint32_t part) { return contains(parts, part); });
  if (order.empty()) return repair_of(message, parts);
  return first_of(
      context_.changes, order, fewest_of(context_.changes, order, [&](const NumberSet &more) {
        const std::optional<NumberSet> answer = context_.oracle.ask({context_.entries.all(), united(parts, more)});
        return answer && !contains(*answer, message);
      }));
}

/// Further parts without which the entries that draw the message, and what is around them, do not draw it: the
/// smallest set, or all parts that have to do with these entries.
NumberSet AdviceSearch::repair_of(std::uint32_t message, const NumberSet &parts) const {
  const TakenBack taken_back(context_.oracle, parts);
  const FoundConflict conflict = minimise(context_, context_.all(), message);
  const NumberSet around = context_.scope(conflict.entries);
  const NumberSet candidates = minus(this->candidates(conflict.entries), parts);
  const auto effect = [&](const NumberSet &more) {
    const std::optional<NumberSet> answer = context_.oracle.ask({around, more});
    return effect_of(answer && !contains(*answer, message));
  };
  const Corrections found = find_corrections(context_, candidates, effect, kMostAsked);
  return found.sets.empty() ? candidates : found.sets.front();
}

/// Keeps each of a few parts without which the whole is accepted all the same.
NumberSet AdviceSearch::without_needless(NumberSet parts) const {
  if (parts.size() > kMostTriedAlone) return parts;
  const auto is_enough = [&](const NumberSet &rest) { return silences_each(rest) && check_.is_accepted_without(rest); };
  return reduced(context_, std::move(parts), is_enough, kMostAsked);
}

/// Without limits, which share parts with all.
std::vector<AdviceSearch::Groups> AdviceSearch::groups_that_share_parts() const {
  std::vector<std::size_t> leaders(groups_.size());
  std::iota(leaders.begin(), leaders.end(), std::size_t{0});
  const auto leader = [&leaders](std::size_t group) {
    while (leaders[group] != group) group = leaders[group] = leaders[leaders[group]];
    return group;
  };
  std::map<std::uint32_t, std::size_t> first;
  for (std::size_t group = 0; group < groups_.size(); ++group) {
    if (is_limit(group)) continue;
    for (const std::uint32_t part : candidates(entries_of({group}))) {
      leaders[leader(group)] = leader(first.try_emplace(part, group).first->second);
    }
  }
  std::map<std::size_t, Groups> shared;
  for (std::size_t group = 0; group < groups_.size(); ++group) {
    if (!is_limit(group)) shared[leader(group)].push_back(group);
  }
  std::vector<Groups> result;
  for (auto &[first_group, groups] : shared) result.push_back(std::move(groups));
  return result;
}

Corrections AdviceSearch::for_groups(const Groups &groups) const {
  const bool is_few = context_.changes.size() <= kFewParts;
  Corrections result;
  if (!is_few && groups.size() == 1 && is_limit(groups.front())) {
    result = for_limit(groups.front());
  } else {
    const auto effect = [&](const NumberSet &parts) { return check_.effect(groups, parts); };
    const std::size_t most = is_few ? kMostAskedOfFew : kMostAsked;
    result = find_corrections(context_, candidates(entries_of(groups)), effect, most);
  }
  return result.sets.empty() ? reduced_for(groups) : result;
}

/// Of the parts at the findings' entries, of those around them, or of all, as many as must go.
Corrections AdviceSearch::reduced_for(const Groups &groups) const {
  const auto is_enough = [&](const NumberSet &parts) { return check_.helps(groups, parts); };
  const NumberSet entries = entries_of(groups);
  Corrections result;
  result.has_all = false;
  for (const NumberSet &start : {candidates(entries), candidates(context_.scope(entries)), context_.changes.all()}) {
    const NumberSet closed = context_.changes.closure(start);
    if (context_.oracle.has_ended()) break;
    if (!is_enough(closed)) continue;
    result.sets.push_back(reduced(context_, closed, is_enough, kMostAsked));
    break;
  }
  return result;
}

/// The fewest additions, or changes in place, of what a limit counts: those that take most of it, or any so many where
/// those that take least of it are enough.
Corrections AdviceSearch::for_limit(std::size_t group) const {
  const NumberSet order = parts_by_weight(context_, conflicts_[groups_[group].front()].parties);
  const auto helps = [&](const NumberSet &parts) { return check_.helps({group}, parts); };
  const std::size_t enough = fewest_of(context_.changes, order, helps);
  Corrections result;
  result.has_all = false;
  if (enough > order.size() || context_.oracle.has_ended()) return result;
  result.sets.push_back(first_of(context_.changes, order, enough));
  const NumberSet backwards(order.rbegin(), order.rend());
  if (enough == order.size() || !helps(first_of(context_.changes, backwards, enough))) return result;
  result.enough = enough;
  result.choices = order;
  normalise(result.choices);
  return result;
}

bool AdviceSearch::is_limit(std::size_t group) const {
  return context_.messages[conflicts_[groups_[group].front()].message].counts();
}

NumberSet AdviceSearch::entries_of(const Groups &groups) const {
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

}  // namespace diagnosis
