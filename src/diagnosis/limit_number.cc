#include "diagnosis/limit_number.h"

#include <algorithm>
#include <bit>
#include <numeric>
#include <optional>

#include "diagnosis/exhaustive_search.h"
#include "diagnosis/limit.h"

namespace diagnosis {
namespace {

using Mask = std::uint32_t;

// All sets of so few parties are weighed, and so many of them asked about.
constexpr std::size_t kMostWeighedParties = 16;
constexpr std::size_t kMostAskedSets = 256;

/// Finds the fewest places that hit each of the sets.
class HittingSearch {
 public:
  HittingSearch(const std::vector<Mask> &sets, std::size_t places) : sets_(sets), best_((Mask{1} << places) - 1) {}

  Mask run() {
    extend(0, 0);
    return best_;
  }

 private:
  // Branches on the places of a set that is not hit. A place that was tried is left to the branch that has it.
  void extend(Mask chosen, Mask tried) {
    const auto missed = std::find_if(sets_.begin(), sets_.end(), [chosen](Mask set) { return (set & chosen) == 0; });
    if (missed == sets_.end()) {
      if (std::popcount(chosen) < std::popcount(best_)) best_ = chosen;
      return;
    }
    if (std::popcount(chosen) + 1 >= std::popcount(best_)) return;
    for (Mask rest = *missed & ~tried; rest != 0; rest &= rest - 1) {
      const Mask place = rest & (~rest + 1);
      extend(chosen | place, tried);
      tried |= place;
    }
  }

  const std::vector<Mask> &sets_;
  Mask best_;
};

Mask mask_of(const NumberSet &parties, const NumberSet &set) {
  Mask mask = 0;
  for (std::size_t i = 0; i < parties.size(); ++i) {
    if (contains(set, parties[i])) mask |= Mask{1} << i;
  }
  return mask;
}

std::vector<Mask> exceeding_masks(const FoundConflict &limit) {
  std::vector<Mask> masks;
  for (const NumberSet &set : limit.exceeding) masks.push_back(mask_of(limit.parties, set));
  std::erase(masks, Mask{0});
  return masks;
}

class Correction {
 public:
  Correction(const SearchContext &context, const FoundConflicts &conflicts, FoundConflict &conflict)
      : context_(context), conflicts_(conflicts), conflict_(conflict), limit_(context, conflict.message) {
    for (const std::uint32_t party : conflict.parties) shares_.push_back({party, limit_.weight(party)});
  }

  void run() {
    if (!context_.oracle.has_ended() && !may_be_hidden()) return;
    const std::optional<std::size_t> number = is_weighed() ? asked_number() : std::nullopt;
    if (number && !context_.oracle.has_ended()) {
      conflict_.too_many = *number;
    } else {
      tell_bounds();
    }
  }

 private:
  bool is_weighed() const { return limit_.is_known() && shares_.size() <= kMostWeighedParties; }

  /// Parties have other conflicts with each other. Of many parties that does not matter where the whole commit draws
  /// the limit all the same; of few it is asked, too, whether something unknown hides it.
  bool may_be_hidden() const {
    const bool has_rival = std::any_of(conflicts_.begin(), conflicts_.end(),
                                       [this](const FoundConflict &other) { return may_hide(other); });
    if (is_weighed()) return has_rival || !context_.oracle.reproduces(conflict_.entries, conflict_.message);
    return has_rival && !context_.oracle.reproduces(context_.all(), conflict_.message);
  }

  /// Two of the parties are parties of the other conflict. Another limit hides this one only where some that barely
  /// exceed this one exceed the other.
  bool may_hide(const FoundConflict &other) const {
    const NumberSet shared = intersection(other.innermost(), conflict_.parties);
    if (&other == &conflict_ || shared.size() < 2) return false;
    if (!context_.messages[other.message].counts()) return true;
    const Limit limit(context_, other.message);
    if (!limit.is_known() || !limit_.is_known()) return true;
    std::vector<std::size_t> weights;
    for (const std::uint32_t party : shared) weights.push_back(limit.weight(party));
    std::sort(weights.rbegin(), weights.rend());
    weights.resize(std::min(weights.size(), most_barely_exceeding()));
    return std::accumulate(weights.begin(), weights.end(), std::size_t{0}) > limit.allowed();
  }

  /// Of the lightest so many exceed the limit.
  std::size_t most_barely_exceeding() const {
    std::vector<std::size_t> weights;
    for (const Share &share : shares_) weights.push_back(share.weight);
    std::sort(weights.begin(), weights.end());
    std::size_t sum = 0;
    std::size_t number = 0;
    while (number < weights.size() && sum <= limit_.allowed()) sum += weights[number++];
    return number;
  }

  bool draws(Mask left) const {
    NumberSet gone;
    for (std::size_t i = 0; i < shares_.size(); ++i) {
      if ((left >> i & 1U) == 0) gone.push_back(shares_[i].entry);
    }
    return context_.oracle.reproduces(context_.entries.without(conflict_.entries, gone), conflict_.message);
  }

  /// What keeps to the limit without any one of its parties, and does not with it.
  std::vector<Mask> barely_exceeding() const {
    std::vector<Mask> sets;
    for (Mask set = 1; set < (Mask{1} << shares_.size()); ++set) {
      std::size_t sum = 0;
      std::size_t least = limit_.allowed() + 1;
      for (std::size_t i = 0; i < shares_.size(); ++i) {
        if ((set >> i & 1U) == 0) continue;
        sum += shares_[i].weight;
        least = std::min(least, shares_[i].weight);
      }
      if (sum > limit_.allowed() && sum - least <= limit_.allowed()) sets.push_back(set);
      if (sets.size() > kMostAskedSets) break;
    }
    return sets;
  }

  /// Nothing where it would take too many questions. What is left without the fewest may draw the limit all the same
  /// where something mends what hides it, or where it takes more of the parties to make the library look.
  std::optional<std::size_t> asked_number() const {
    std::vector<Mask> sets = barely_exceeding();
    if (sets.size() > kMostAskedSets) return std::nullopt;
    std::erase_if(sets, [this](Mask set) { return !draws(set); });
    for (const Mask set : exceeding_masks(conflict_)) sets.push_back(set);
    const Mask all = (Mask{1} << shares_.size()) - 1;
    while (sets.size() <= 2 * kMostAskedSets && !context_.oracle.has_ended()) {
      const Mask fewest = HittingSearch(sets, shares_.size()).run();
      const Mask left = all & ~fewest;
      if (left == 0 || !draws(left)) return static_cast<std::size_t>(std::popcount(fewest));
      sets.push_back(minimal_within(left));
    }
    return std::nullopt;
  }

  Mask minimal_within(Mask set) const {
    for (Mask rest = set; rest != 0; rest &= rest - 1) {
      const Mask without = set & ~(rest & (~rest + 1));
      if (without != 0 && draws(without)) set = without;
    }
    return set;
  }

  // The heaviest must go until what is left keeps to the limit. Of parties that have no other conflict with each other
  // as many must go at least, for nothing hides the limit in them.
  void tell_bounds() {
    const std::size_t most = limit_.is_known() ? surplus_of(shares_) : shares_.size();
    std::vector<Share> compatible = shares_;
    const NumberSet at_odds = parties_at_odds();
    std::erase_if(compatible, [&](const Share &share) { return contains(at_odds, share.entry); });
    const bool is_certain = limit_.is_known() && !context_.oracle.has_ended();
    conflict_.too_many = std::max<std::size_t>(is_certain ? surplus_of(compatible) : 0, 1);
    conflict_.most_too_many = most > conflict_.too_many ? most : 0;
  }

  /// Of each other conflict so many parties that it is gone without them.
  NumberSet parties_at_odds() const {
    NumberSet gone;
    for (const FoundConflict &other : conflicts_) {
      if (!may_hide(other)) continue;
      const NumberSet shared = intersection(other.innermost(), conflict_.parties);
      const auto number = static_cast<std::ptrdiff_t>(std::min(shared.size(), other.surplus()));
      gone.insert(gone.end(), shared.end() - number, shared.end());
    }
    normalise(gone);
    return gone;
  }

  /// So many of the shares must go, or all that the commit touches where nothing else makes the library look.
  std::size_t surplus_of(std::vector<Share> shares) const {
    std::sort(shares.begin(), shares.end(), [](const Share &a, const Share &b) { return a.weight > b.weight; });
    std::size_t left = sum_of(shares);
    std::size_t number = 0;
    for (; left > limit_.allowed(); ++number) left -= shares[number].weight;
    if (!conflict_.triggers.empty()) return number;
    const auto looked_at = std::count_if(shares.begin(), shares.end(),
                                         [this](const Share &share) { return holds_touched(context_, share.entry); });
    return std::min(number, static_cast<std::size_t>(looked_at));
  }

  const SearchContext &context_;
  const FoundConflicts &conflicts_;
  FoundConflict &conflict_;
  Limit limit_;
  std::vector<Share> shares_;
};

}  // namespace

std::size_t fewest_in_each(const FoundConflict &limit) {
  return static_cast<std::size_t>(std::popcount(HittingSearch(exceeding_masks(limit), limit.parties.size()).run()));
}

void correct_too_many(const SearchContext &context, const FoundConflicts &conflicts, FoundConflict &limit) {
  Correction(context, conflicts, limit).run();
}

}  // namespace diagnosis
