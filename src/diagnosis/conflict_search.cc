#include "diagnosis/conflict_search.h"

#include <algorithm>

#include "diagnosis/confirmation.h"
#include "diagnosis/limit_search.h"
#include "diagnosis/minimisation.h"

namespace diagnosis {
namespace {

// Large enough that a commit without faults takes few questions, small enough that one with many takes little time.
constexpr std::size_t kBundleSize = 48;

constexpr std::size_t kMostSets = 64;

// To cover the pairs of more parties would take longer than to ask.
constexpr std::size_t kMostCoveredParties = 4096;

// Any change may make the library look at what is in force; so many are named.
constexpr std::size_t kMostTriggers = 16;

}  // namespace

Bound bound_of(const FoundConflict &conflict) {
  const std::size_t parties = conflict.parties.size();
  return {conflict.parties, parties - std::min(parties, conflict.too_many)};
}

void ConflictSearch::find(std::uint32_t message) {
  if (!context_.oracle.has_ended()) explain(context_.entries.all(), message);
}

void ConflictSearch::find_all() {
  for (const NumberSet &bundle : locality_.bundles(kBundleSize)) {
    if (context_.oracle.has_ended()) break;
    find_in(bundle);
  }
  find_in(context_.entries.all());
  find_other_triggers();
  is_proven_ = is_proven_ && !context_.oracle.has_ended();
}

// All that is no party of a known conflict, with parties that have none with each other. A set that brings something
// new changes what is to be asked.
void ConflictSearch::find_in(const NumberSet &set) {
  std::size_t known = conflicts_.size();
  do {
    known = conflicts_.size();
    const IndependentSets independent = sets_within(set);
    is_proven_ = is_proven_ && independent.is_covering;
    const NumberSet parties = intersection(parties_, set);
    for (const NumberSet &beside : independent.sets) {
      if (context_.oracle.has_ended()) return;
      find_among(context_.entries.without(set, minus(parties, beside)));
      if (conflicts_.size() != known) break;
    }
  } while (conflicts_.size() != known);
}

/// Finds what the entries draw, and takes it out, until they draw nothing.
void ConflictSearch::find_among(NumberSet left) {
  while (!left.empty()) {
    const std::optional<NumberSet> answer = context_.oracle.ask({left, {}});
    if (!answer || answer->empty()) return;
    const std::size_t known = conflicts_.size();
    for (const std::uint32_t message : *answer) {
      const bool is_left = conflicts_.size() == known || context_.oracle.reproduces(left, message);
      if (!is_left) continue;
      const bool is_new = explain(left, message);
      if (context_.oracle.has_ended()) return;
      if (!is_new) is_proven_ = false;
      left = without_parties(left, is_new ? conflicts_.back() : minimise(context_, left, message));
    }
  }
}

bool ConflictSearch::explain(const NumberSet &set, std::uint32_t message) {
  FoundConflict conflict = context_.messages[message].counts() ? find_exceeded_limit(context_, set, message)
                                                               : minimise(context_, set, message);
  const bool is_known = std::any_of(conflicts_.begin(), conflicts_.end(), [&](const FoundConflict &known) {
    return known.message == message && known.entries == conflict.entries;
  });
  if (is_known || (context_.oracle.has_ended() && conflict.entries.size() > kBundleSize)) return false;
  find_triggers(context_, conflict);
  parties_ = united(parties_, conflict.parties);
  conflicts_.push_back(std::move(conflict));
  context_.oracle.findings = conflicts_.size();
  return true;
}

NumberSet ConflictSearch::without_parties(const NumberSet &set, const FoundConflict &conflict) const {
  NumberSet gone = conflict.parties.empty() ? conflict.triggers : conflict.parties;
  if (conflict.too_many > 1 || context_.messages[conflict.message].counts()) {
    gone.erase(gone.begin(), gone.end() - static_cast<std::ptrdiff_t>(std::min(gone.size(), conflict.too_many)));
  }
  return context_.entries.without(set, gone);
}

IndependentSets ConflictSearch::sets_within(const NumberSet &set) const {
  std::vector<Bound> bounds;
  std::size_t parties = 0;
  for (const FoundConflict &conflict : conflicts_) {
    if (!is_subset(conflict.parties, set)) continue;
    bounds.push_back(bound_of(conflict));
    parties += conflict.parties.size();
  }
  if (parties > kMostCoveredParties) return {{{}}, false};
  return independent_sets(bounds, {}, kMostSets);
}

void ConflictSearch::find_other_triggers() {
  const Entries &entries = context_.entries;
  for (FoundConflict &conflict : conflicts_) {
    if (conflict.triggers.empty()) continue;
    const element::SchemaNode *kind = entries.node(conflict.triggers.front()).schema;
    const NumberSet core = minus(conflict.entries, conflict.triggers);
    std::size_t asked = 0;
    for (std::uint32_t entry = 0; entry < entries.size() && asked < kMostTriggers; ++entry) {
      if (entries.node(entry).schema != kind || status_of(entries, entry) == ChangeStatus::unchanged) continue;
      if (contains(conflict.innermost(), entry)) continue;
      ++asked;
      const NumberSet set = entries.closure(united(core, {entry}));
      if (context_.oracle.reproduces(set, conflict.message)) conflict.triggers = united(conflict.triggers, {entry});
    }
  }
}

}  // namespace diagnosis
