#include "diagnosis/independent_sets.h"

#include <algorithm>

namespace diagnosis {
namespace {

using Index = std::size_t;

/// The parties by their places in ascending order.
class Covering {
 public:
  Covering(const std::vector<Bound> &bounds, const NumberSet &kept) {
    for (const Bound &bound : bounds) {
      parties_.insert(parties_.end(), bound.parties.begin(), bound.parties.end());
    }
    normalise(parties_);
    parties_ = minus(parties_, kept);
    bounds_of_.resize(parties_.size());
    for (const Bound &bound : bounds) add_bound(bound, kept);
    uncovered_.assign(parties_.size(), std::vector<bool>(parties_.size(), true));
  }

  IndependentSets run(std::size_t most_sets) {
    IndependentSets result;
    if (parties_.empty()) return {{{}}, true};
    for (Index seed = 0; seed < parties_.size(); ++seed) {
      for (Index partner = seed; partner < parties_.size(); ++partner) {
        if (!uncovered_[seed][partner]) continue;
        if (result.sets.size() == most_sets) return {std::move(result.sets), false};
        begin_set();
        if (!add(seed) || (partner != seed && !add(partner))) {
          cover(seed, partner);
          continue;
        }
        fill();
        result.sets.push_back(take());
      }
    }
    if (result.sets.empty()) result.sets.emplace_back();
    return result;
  }

 private:
  void add_bound(const Bound &bound, const NumberSet &kept) {
    const NumberSet free = minus(bound.parties, kept);
    const std::size_t taken = bound.parties.size() - free.size();
    if (free.empty()) return;
    room_.push_back(bound.most > taken ? bound.most - taken : 0);
    for (const std::uint32_t party : free) {
      const auto place = std::lower_bound(parties_.begin(), parties_.end(), party);
      bounds_of_[static_cast<Index>(place - parties_.begin())].push_back(room_.size() - 1);
    }
  }

  void begin_set() {
    left_ = room_;
    is_in_.assign(parties_.size(), false);
    gain_.assign(parties_.size(), 0);
    members_.clear();
  }

  bool fits(Index party) const {
    return !is_in_[party] && std::all_of(bounds_of_[party].begin(), bounds_of_[party].end(),
                                         [this](std::size_t bound) { return left_[bound] > 0; });
  }

  bool add(Index party) {
    if (!fits(party)) return false;
    for (const std::size_t bound : bounds_of_[party]) --left_[bound];
    is_in_[party] = true;
    members_.push_back(party);
    for (Index other = 0; other < parties_.size(); ++other) gain_[other] += uncovered_[party][other] ? 1U : 0U;
    return true;
  }

  // The party with the most new pairs comes next; where none brings one, any that fits.
  void fill() {
    while (true) {
      Index best = parties_.size();
      for (Index party = 0; party < parties_.size(); ++party) {
        if (!fits(party)) continue;
        if (best == parties_.size() || value(party) > value(best)) best = party;
      }
      if (best == parties_.size()) return;
      add(best);
    }
  }

  std::size_t value(Index party) const { return 2 * gain_[party] + (uncovered_[party][party] ? 1U : 0U); }

  void cover(Index one, Index other) {
    uncovered_[one][other] = false;
    uncovered_[other][one] = false;
  }

  NumberSet take() {
    NumberSet set;
    for (const Index one : members_) {
      set.push_back(parties_[one]);
      for (const Index other : members_) cover(one, other);
    }
    normalise(set);
    return set;
  }

  NumberSet parties_;
  std::vector<std::vector<std::size_t>> bounds_of_;  ///< by party
  std::vector<std::size_t> room_;                    ///< by bound, for an empty set
  std::vector<std::vector<bool>> uncovered_;
  std::vector<std::size_t> left_;  ///< by bound
  std::vector<bool> is_in_;
  std::vector<std::size_t> gain_;
  std::vector<Index> members_;
};

}  // namespace

IndependentSets independent_sets(const std::vector<Bound> &bounds, const NumberSet &kept, std::size_t most_sets) {
  return Covering(bounds, kept).run(most_sets);
}

}  // namespace diagnosis
