#include "diagnosis/correction_check.h"

#include <algorithm>
#include <set>

#include "diagnosis/confirmation.h"
#include "diagnosis/exhaustive_search.h"
#include "diagnosis/limit_search.h"
#include "diagnosis/minimisation.h"

namespace diagnosis {
namespace {

constexpr std::size_t kMostSurroundings = 8;

// So many conflicts, one beside the other, are taken out of what is asked about until the library accepts the rest.
constexpr std::size_t kDeepest = 12;

// What is near is enumerated if it has so many closed sets.
constexpr std::uint64_t kMostSetsNear = 512;

// So many parties of other conflicts are asked about with each entry whose change is taken back.
constexpr std::size_t kMostPartners = 64;

/// The entries that the parts are about, with those added in them.
NumberSet entries_of(const SearchContext &context, const NumberSet &parts) {
  NumberSet entries;
  for (const std::uint32_t part : parts) {
    const std::uint32_t entry = context.entries.tree()[context.changes[part].node].entry;
    if (entry != kNone) entries.push_back(entry);
  }
  normalise(entries);
  return entries;
}

/// Of messages that tell the more the more entries take part, what shares a party is one conflict.
FoundConflicts with_cumulative_joined(const Messages &messages, FoundConflicts conflicts) {
  FoundConflicts joined;
  for (FoundConflict &conflict : conflicts) {
    for (auto other = joined.begin(); messages[conflict.message].is_cumulative() && other != joined.end();) {
      const bool is_same =
          other->message == conflict.message && !intersection(other->parties, conflict.parties).empty();
      if (is_same) conflict.parties = united(conflict.parties, other->parties);
      other = is_same ? joined.erase(other) : other + 1;
    }
    joined.push_back(std::move(conflict));
  }
  return joined;
}

}  // namespace

CorrectionCheck::CorrectionCheck(const SearchContext &context, const FoundConflicts &conflicts,
                                 const std::vector<ConflictGroup> &groups)
    : context_(context), conflicts_(conflicts), groups_(groups) {
  for (const FoundConflict &conflict : conflicts) messages_.push_back(conflict.message);
  normalise(messages_);
}

bool CorrectionCheck::is_accepted_without(const NumberSet &parts) const {
  const std::optional<NumberSet> answer = context_.oracle.ask({context_.entries.all(), parts});
  return answer && answer->empty();
}

Effect CorrectionCheck::effect(const std::vector<std::size_t> &findings, const NumberSet &parts) const {
  const std::vector<bool> is_own = conflicts_of(findings);
  const TakenBack taken_back(context_.oracle, parts);
  const Effect effect = is_seen_to_stay(is_own, parts) ? Effect::none : proven_effect(is_own, parts);
  return context_.oracle.has_ended() ? Effect::unproven : effect;
}

std::vector<bool> CorrectionCheck::conflicts_of(const std::vector<std::size_t> &findings) const {
  std::vector<bool> is_own(conflicts_.size(), false);
  for (const std::size_t finding : findings) {
    for (const std::size_t conflict : groups_[finding]) is_own[conflict] = true;
  }
  return is_own;
}

// Few questions show that most sets are no help: a conflict that is drawn by its own entries, alone and with what is
// beside them, stays; a message that the whole commit does not draw is new.
bool CorrectionCheck::is_seen_to_stay(const std::vector<bool> &is_own, const NumberSet &parts) const {
  std::optional<NumberSet> whole;
  if (context_.locality == nullptr) {
    whole = context_.oracle.ask({context_.all(), {}});
    if (!whole || !is_subset(*whole, messages_)) return true;
  }
  for (std::size_t i = 0; i < conflicts_.size(); ++i) {
    if (!is_own[i]) continue;
    if (!context_.is_enumerated && is_limit_exceeded(conflicts_[i])) return true;
    if (!context_.oracle.reproduces(conflicts_[i].entries, conflicts_[i].message)) continue;
    const bool is_drawn = context_.is_enumerated ? whole && contains(*whole, conflicts_[i].message)
                                                 : is_beside_known(is_own, conflicts_[i]);
    if (is_drawn) return true;
  }
  return context_.oracle.has_ended() || parts.empty();
}

/// Of a limit all that it may count is asked about, parties of other findings among it.
bool CorrectionCheck::is_limit_exceeded(const FoundConflict &conflict) const {
  if (!context_.messages[conflict.message].counts()) return false;
  std::set<const element::SchemaNode *> lists;
  for (const std::uint32_t party : conflict.parties) lists.insert(context_.entries.node(party).schema);
  NumberSet counted = context_.all();
  std::erase_if(counted, [&](std::uint32_t entry) { return lists.count(context_.entries.node(entry).schema) == 0; });
  return context_.oracle.reproduces(context_.entries.closure(counted), conflict.message);
}

bool CorrectionCheck::is_proven_by_enumeration(const std::vector<bool> &is_own, const NumberSet &universe) const {
  FoundConflicts left = find_all_by_enumeration(context_, universe);
  for (FoundConflict &conflict : left) find_triggers(context_, conflict);
  drop_mended(context_, left);
  left = with_cumulative_joined(context_.messages, std::move(left));
  return std::all_of(left.begin(), left.end(),
                     [&](const FoundConflict &conflict) { return is_known(is_own, conflict); });
}

/// It is a conflict of the whole commit, and none of the findings'.
bool CorrectionCheck::is_known(const std::vector<bool> &is_own, const FoundConflict &conflict) const {
  const bool is_cumulative = context_.messages[conflict.message].is_cumulative();
  bool is_known = false;
  for (std::size_t i = 0; i < conflicts_.size(); ++i) {
    if (conflicts_[i].message != conflict.message) continue;
    const bool is_same = is_cumulative ? !intersection(conflicts_[i].parties, conflict.parties).empty()
                                       : conflicts_[i].parties == conflict.parties;
    if (is_same && is_own[i]) return false;
    is_known = is_known || is_same;
  }
  return is_known;
}

// All that may matter is enumerated where it is little; else what is near, and then what is around it is searched.
Effect CorrectionCheck::proven_effect(const std::vector<bool> &is_own, const NumberSet &parts) const {
  const NumberSet about = what_is_about(is_own, parts);
  const NumberSet scope = context_.scope(about);
  if (context_.is_enumerated || is_little(scope)) return effect_of(is_proven_by_enumeration(is_own, scope));
  if (!locality_) locality_.emplace(context_.entries, [this] { return context_.oracle.has_ended(); });
  const NumberSet near = context_.entries.without(locality_->around(about), context_.gone());
  if (is_little(near) && !is_proven_by_enumeration(is_own, near)) return Effect::unproven;
  return is_proven_around(is_own, parts) ? Effect::repairs : Effect::unproven;
}

bool CorrectionCheck::is_little(const NumberSet &entries) const {
  return entries.size() <= kMostMaskedEntries &&
         count_closed_sets(context_.entries, entries, kMostSetsNear + 1) <= kMostSetsNear;
}

/// The entries of the findings and of the parts, with those that they need.
NumberSet CorrectionCheck::what_is_about(const std::vector<bool> &is_own, const NumberSet &parts) const {
  NumberSet entries = context_.entries.closure(entries_of(context_, parts));
  for (std::size_t i = 0; i < conflicts_.size(); ++i) {
    if (is_own[i]) entries = united(entries, conflicts_[i].entries);
  }
  return entries;
}

// What the parts were about and the findings' own entries are always there; beside them those parties of other
// conflicts that go together.
bool CorrectionCheck::is_proven_around(const std::vector<bool> &is_own, const NumberSet &parts) const {
  const NumberSet gone = context_.gone();
  NumberSet kept = what_is_about(is_own, parts);
  const NumberSet scope = context_.scope(kept);
  kept = context_.entries.without(kept, gone);
  NumberSet others;
  std::vector<Bound> bounds;
  for (std::size_t i = 0; i < conflicts_.size(); ++i) {
    if (is_own[i] || !is_subset(conflicts_[i].parties, scope)) continue;
    others = united(others, conflicts_[i].innermost());
    bounds.push_back(within(bound_of(context_, conflicts_[i]), scope));
  }
  if (!holds_known_pairs(is_own, entries_of(context_, parts), united(others, kept))) return false;
  others = minus(others, kept);
  const IndependentSets independent = independent_sets(bounds, kept, kMostSurroundings);
  return std::all_of(independent.sets.begin(), independent.sets.end(), [&](const NumberSet &beside) {
    const NumberSet left = context_.entries.without(scope, minus(others, beside));
    return holds_known_only(is_own, context_.entries.closure(united(left, kept)), kDeepest);
  });
}

/// A party of a conflict that it has alone stands in no set beside the others: what it has with an entry whose change
/// is taken back is asked of the two.
bool CorrectionCheck::holds_known_pairs(const std::vector<bool> &is_own, const NumberSet &reverted,
                                        const NumberSet &others) const {
  for (const std::uint32_t one : context_.entries.without(reverted, context_.gone())) {
    std::size_t asked = 0;
    for (const std::uint32_t other : others) {
      if (asked++ == kMostPartners) break;
      const NumberSet pair = one < other ? NumberSet{one, other} : NumberSet{other, one};
      if (one != other && !holds_known_only(is_own, context_.entries.closure(pair), 0)) return false;
    }
  }
  return true;
}

/// What the entries draw is known. A conflict is taken out in every way, for it may hide others.
bool CorrectionCheck::holds_known_only(const std::vector<bool> &is_own, const NumberSet &entries,
                                       std::size_t depth) const {
  const std::optional<NumberSet> answer = context_.oracle.ask({entries, {}});
  if (!answer) return false;
  if (answer->empty()) return true;
  NumberSet first;
  for (const std::uint32_t message : *answer) {
    FoundConflict conflict = minimise(context_, entries, message);
    find_triggers(context_, conflict);
    if (!is_known(is_own, conflict) && is_beside_known(is_own, conflict)) return false;
    if (!first.empty()) continue;
    first = conflict.innermost();
    if (context_.messages[message].is_cumulative()) first.resize(1);
  }
  return depth == 0 || std::all_of(first.begin(), first.end(), [&](std::uint32_t party) {
           return holds_known_only(is_own, context_.entries.without(entries, {party}), depth - 1);
         });
}

/// The message is still drawn beside all that is party of no known conflict that is left, with or without the findings'
/// own, which may be gone: nothing mends it.
bool CorrectionCheck::is_beside_known(const std::vector<bool> &is_own, const FoundConflict &conflict) const {
  const NumberSet scope = context_.scope(conflict.entries);
  NumberSet own;
  NumberSet others;
  for (std::size_t i = 0; i < conflicts_.size(); ++i) {
    const NumberSet members = conflicts_[i].innermost();
    const bool is_near = !intersection(members, scope).empty();
    if (!is_near || !context_.oracle.reproduces(conflicts_[i].entries, conflicts_[i].message)) continue;
    NumberSet &set = is_own[i] ? own : others;
    set = united(set, members);
  }
  const NumberSet beside = minus(scope, others);
  return is_drawn_beside(conflict, beside) || is_drawn_beside(conflict, minus(beside, own));
}

bool CorrectionCheck::is_drawn_beside(const FoundConflict &conflict, const NumberSet &beside) const {
  const NumberSet entries = context_.entries.closure(united(beside, conflict.entries));
  return context_.oracle.reproduces(entries, conflict.message);
}

}  // namespace diagnosis
