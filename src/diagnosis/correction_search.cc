#include "diagnosis/correction_search.h"

#include <algorithm>
#include <tuple>

#include "diagnosis/description.h"

namespace diagnosis {
namespace {

// More are not told.
constexpr std::size_t kMostAlternatives = 64;

// So many sets of candidates are put in order; larger sets are left to their unions.
constexpr std::size_t kMostCorrectionSets = 20'000;

struct Rank {
  std::size_t size = 0;
  std::size_t removed = 0;
  std::size_t changed = 0;

  auto operator<=>(const Rank &) const = default;
};

struct Candidate {
  Rank rank;
  NumberSet parts;
};

Rank rank_of(const RevertibleChanges &changes, const NumberSet &parts) {
  Rank rank{parts.size(), 0, 0};
  for (const std::uint32_t part : parts) {
    if (changes[part].status == ChangeStatus::removed) ++rank.removed;
    if (changes[part].status == ChangeStatus::changed) ++rank.changed;
  }
  return rank;
}

/// The closed sets that the candidates make, level by level as in the Apriori algorithm: each set of a level is one of
/// the level before with a later candidate.
class Sets {
 public:
  Sets(const RevertibleChanges &changes, const NumberSet &candidates) : changes_(changes), candidates_(candidates) {
    std::vector<NumberSet> level{{}};
    while (!level.empty() && sets_.size() < kMostCorrectionSets) level = next_level(level);
    is_complete_ = level.empty();
    std::stable_sort(sets_.begin(), sets_.end(), [](const Candidate &a, const Candidate &b) {
      return std::tie(a.rank, a.parts) < std::tie(b.rank, b.parts);
    });
    sets_.erase(std::unique(sets_.begin(), sets_.end(),
                            [](const Candidate &a, const Candidate &b) { return a.parts == b.parts; }),
                sets_.end());
  }

  const std::vector<Candidate> &all() const { return sets_; }
  bool is_complete() const { return is_complete_; }

 private:
  std::vector<NumberSet> next_level(const std::vector<NumberSet> &level) {
    std::vector<NumberSet> next;
    for (const NumberSet &chosen : level) {
      for (const std::uint32_t part : candidates_) {
        if (!chosen.empty() && part < changes_[chosen.back()].end) continue;
        if (sets_.size() >= kMostCorrectionSets) return next;
        NumberSet more = chosen;
        more.push_back(part);
        NumberSet closed = changes_.closure(more);
        sets_.push_back({rank_of(changes_, closed), std::move(closed)});
        next.push_back(std::move(more));
      }
    }
    return next;
  }

  const RevertibleChanges &changes_;
  const NumberSet &candidates_;
  std::vector<Candidate> sets_;
  bool is_complete_ = true;
};

/// Additions are taken back rather than changes, and these rather than removals: what comes last is tried last.
NumberSet in_order_of_keeping(const RevertibleChanges &changes, const NumberSet &parts) {
  NumberSet order;
  for (const ChangeStatus status : {ChangeStatus::removed, ChangeStatus::changed, ChangeStatus::added}) {
    for (const std::uint32_t part : parts) {
      if (changes[part].status == status) order.push_back(part);
    }
  }
  return order;
}

std::vector<NumberSet> chunks(const NumberSet &order, std::size_t size) {
  std::vector<NumberSet> result;
  for (std::size_t begin = 0; begin < order.size(); begin += size) {
    const auto first = order.begin() + static_cast<std::ptrdiff_t>(begin);
    const auto last = order.begin() + static_cast<std::ptrdiff_t>(std::min(begin + size, order.size()));
    result.emplace_back(first, last);
  }
  return result;
}

/// The closed set without some of its parts: with an entry that is added after all those around it are.
NumberSet without_and_around(const RevertibleChanges &changes, const NumberSet &set, const NumberSet &kept) {
  NumberSet gone;
  for (const std::uint32_t part : kept) {
    for (std::uint32_t outer = part; outer != kNone; outer = changes[outer].parent) gone.push_back(outer);
  }
  normalise(gone);
  return minus(set, gone);
}

/// All choices of `enough` out of the parts are among the alternatives.
bool is_any_of(std::size_t alternatives, std::size_t enough, std::size_t parts) {
  std::size_t choices = 1;
  for (std::size_t i = 0; i < enough; ++i) {
    choices = choices * (parts - i) / (i + 1);
    if (choices > alternatives) return false;
  }
  return choices == alternatives;
}

}  // namespace

Corrections find_corrections(const SearchContext &context, const NumberSet &candidates,
                             const std::function<Effect(const NumberSet &)> &effect, std::size_t most_asked) {
  const Sets sets(context.changes, candidates);
  Corrections corrections;
  Rank found;
  std::size_t asked = 0;
  bool is_every_decided = true;
  for (const Candidate &candidate : sets.all()) {
    const bool has_found = !corrections.sets.empty();
    if (has_found && candidate.rank > found) break;
    if (asked == most_asked || context.oracle.has_ended() || corrections.sets.size() == kMostAlternatives) {
      corrections.has_all = false;
      break;
    }
    ++asked;
    const Effect own = effect(candidate.parts);
    is_every_decided = is_every_decided && own != Effect::unproven;
    if (own != Effect::repairs) continue;
    if (!has_found) found = candidate.rank;
    corrections.sets.push_back(candidate.parts);
  }
  const bool has_all_candidates = candidates == context.changes.all();
  const bool is_every_known = (sets.is_complete() || found.size <= 2) && has_all_candidates && is_every_decided;
  corrections.is_minimal = !corrections.sets.empty() && (is_every_known || found.size == 1);
  corrections.has_all = corrections.has_all && has_all_candidates && is_every_decided;
  return corrections;
}

NumberSet reduced(const SearchContext &context, NumberSet parts, const std::function<bool(const NumberSet &)> &helps,
                  std::size_t most_asked) {
  std::size_t asked = 0;
  for (std::size_t chunk = (parts.size() + 1) / 2; chunk > 0; chunk = chunk == 1 ? 0 : (chunk + 1) / 2) {
    for (const NumberSet &kept : chunks(in_order_of_keeping(context.changes, parts), chunk)) {
      NumberSet rest = without_and_around(context.changes, parts, kept);
      if (rest.empty() || rest.size() == parts.size()) continue;
      if (asked++ == most_asked || context.oracle.has_ended()) return parts;
      if (helps(rest)) parts = std::move(rest);
    }
  }
  return parts;
}

Advice describe_advice(const SearchContext &context, const Corrections &corrections) {
  Advice advice;
  NumberSet choices;
  for (const NumberSet &set : corrections.sets) {
    CorrectionSet described;
    for (const std::uint32_t part : set) described.push_back(describe_part(context.entries, context.changes, part));
    advice.alternatives.push_back(std::move(described));
    choices = united(choices, set);
  }
  advice.is_minimal = corrections.is_minimal;
  advice.has_all_alternatives = corrections.has_all;
  advice.enough = corrections.enough;
  const std::size_t enough = corrections.sets.empty() ? 0 : corrections.sets.front().size();
  const bool is_choice = corrections.sets.size() > 1 && is_any_of(corrections.sets.size(), enough, choices.size());
  if (is_choice) advice.enough = enough;
  if (advice.enough == 0) return advice;
  for (const std::uint32_t part : is_choice ? choices : corrections.choices) {
    advice.choices.push_back(describe_part(context.entries, context.changes, part));
  }
  return advice;
}

}  // namespace diagnosis
