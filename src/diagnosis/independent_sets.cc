#include "diagnosis/independent_sets.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <numeric>
#include <random>

namespace diagnosis {
namespace {

using Index = std::size_t;

// More drawn sets to choose from make fewer sets, each of which is a question, and take longer.
constexpr int kDrawnSets = 16;

class Bits {
 public:
  Bits(std::size_t size, bool value) : words_((size + 63) / 64, value ? ~std::uint64_t{0} : 0) {}

  bool test(Index bit) const { return (words_[bit / 64] >> bit % 64 & 1U) != 0; }
  void set(Index bit) { words_[bit / 64] |= std::uint64_t{1} << bit % 64; }

  std::size_t count_common(const Bits &other) const {
    std::size_t count = 0;
    for (std::size_t i = 0; i < words_.size(); ++i) {
      count += static_cast<std::size_t>(std::popcount(words_[i] & other.words_[i]));
    }
    return count;
  }

  void remove(const Bits &other) {
    for (std::size_t i = 0; i < words_.size(); ++i) words_[i] &= ~other.words_[i];
  }

 private:
  std::vector<std::uint64_t> words_;
};

std::size_t choose(std::size_t of, std::size_t number) {
  std::size_t choices = 1;
  for (std::size_t i = 0; i < number; ++i) choices = choices * (of - i) / (i + 1);
  return choices;
}

/// A word for each of `number` conflicts, such that any two of them show all four pairs of bits at one place or
/// another: all bits are 0 at the first place and 1 at the second, and behind these no word holds another, for their
/// weights are equal (Sperner 1928: no shorter ones do).
class Words {
 public:
  explicit Words(std::size_t number) {
    std::size_t length = 0;
    while (choose(length, length / 2) < number) ++length;
    places_ = kConstantPlaces + length;
    std::uint64_t word = (std::uint64_t{1} << length / 2) - 1;
    for (std::size_t i = 0; i < number; ++i) {
      words_.push_back(word);
      if (word == 0) break;
      const std::uint64_t lowest = word & (~word + 1);
      const std::uint64_t carried = word + lowest;
      word = carried | ((word ^ carried) / lowest >> 2U);  // the next number with as many bits
    }
  }

  std::size_t places() const { return places_; }
  bool bit(std::size_t conflict, std::size_t place) const {
    return place < kConstantPlaces ? place == 1 : (words_[conflict] >> (place - kConstantPlaces) & 1U) != 0;
  }

 private:
  static constexpr std::size_t kConstantPlaces = 2;

  std::size_t places_ = 0;
  std::vector<std::uint64_t> words_;
};

/// The parties by their places in ascending order.
class Covering {
 public:
  Covering(const std::vector<Bound> &bounds, const NumberSet &kept) {
    for (const Bound &bound : bounds) {
      parties_.insert(parties_.end(), bound.parties.begin(), bound.parties.end());
    }
    normalise(parties_);
    parties_ = minus(parties_, kept);
    takings_of_.resize(parties_.size());
    for (const Bound &bound : bounds) add_bound(bound, kept);
    uncovered_.assign(parties_.size(), Bits(parties_.size(), true));
    order_.resize(parties_.size());
    std::iota(order_.begin(), order_.end(), Index{0});
  }

  IndependentSets run(std::size_t most_sets, const std::function<bool()> &is_over) {
    if (parties_.empty()) return {{{}}, true};
    IndependentSets result;
    add_sets_of_words(result, most_sets);
    for (Index seed = 0; seed < parties_.size(); ++seed) {
      for (Index partner = seed; partner < parties_.size(); ++partner) {
        if (!uncovered_[seed].test(partner) || !may_be_together(seed, partner)) continue;
        if (result.sets.size() == most_sets || (is_over && is_over())) return {std::move(result.sets), false};
        Chosen begin{Bits(parties_.size(), false), room_};
        add(begin, seed);
        if (partner != seed) add(begin, partner);
        result.sets.push_back(take(best_of_drawn(begin)));
      }
    }
    if (result.sets.empty()) result.sets.emplace_back();
    return result;
  }

 private:
  /// A set that is being filled.
  struct Chosen {
    Bits members;
    std::vector<std::size_t> left;  ///< by bound, how many more it allows
  };

  /// What a party takes of a bound's room.
  struct Taking {
    std::size_t bound = 0;
    std::size_t weight = 0;
  };

  void add_bound(const Bound &bound, const NumberSet &kept) {
    std::vector<Index> members;
    std::size_t taken = 0;
    for (std::size_t i = 0; i < bound.parties.size(); ++i) {
      const std::uint32_t party = bound.parties[i];
      if (contains(kept, party)) {
        taken += bound.weight(i);
        continue;
      }
      const auto place = std::lower_bound(parties_.begin(), parties_.end(), party);
      members.push_back(static_cast<Index>(place - parties_.begin()));
      takings_of_[members.back()].push_back({room_.size(), bound.weight(i)});
    }
    if (members.empty()) return;
    members_of_.push_back(std::move(members));
    room_.push_back(bound.most > taken ? bound.most - taken : 0);
  }

  // Conflicts of two parties each that share none are covered by no fewer sets; others to a large part.
  void add_sets_of_words(IndependentSets &result, std::size_t most_sets) {
    const Words words(room_.size());
    for (std::size_t place = 0; place < words.places() && result.sets.size() < most_sets; ++place) {
      const Chosen chosen = filled_by(words, place);
      if (new_pairs(chosen) != 0) result.sets.push_back(take(chosen));
    }
  }

  /// The first party of a conflict whose bit is 0, the second of one whose bit is 1, and what else fits.
  Chosen filled_by(const Words &words, std::size_t place) const {
    Chosen chosen{Bits(parties_.size(), false), room_};
    for (std::size_t bound = 0; bound < members_of_.size(); ++bound) {
      const Index party = members_of_[bound][words.bit(bound, place) ? members_of_[bound].size() - 1 : 0];
      if (fits(chosen, party)) add(chosen, party);
    }
    for (Index party = 0; party < parties_.size(); ++party) {
      if (fits(chosen, party)) add(chosen, party);
    }
    return chosen;
  }

  bool may_be_together(Index one, Index other) const {
    const auto fits_alone = [&](Index party) {
      return std::all_of(takings_of_[party].begin(), takings_of_[party].end(),
                         [this](const Taking &taking) { return room_[taking.bound] >= taking.weight; });
    };
    if (one == other || !fits_alone(one)) return fits_alone(one);
    return std::all_of(takings_of_[other].begin(), takings_of_[other].end(), [&](const Taking &taking) {
      const auto shared = std::find_if(takings_of_[one].begin(), takings_of_[one].end(),
                                       [&taking](const Taking &own) { return own.bound == taking.bound; });
      return room_[taking.bound] >= taking.weight + (shared == takings_of_[one].end() ? 0 : shared->weight);
    });
  }

  bool fits(const Chosen &chosen, Index party) const {
    const std::vector<Taking> &takings = takings_of_[party];
    return !chosen.members.test(party) && std::all_of(takings.begin(), takings.end(), [&chosen](const Taking &taking) {
      return chosen.left[taking.bound] >= taking.weight;
    });
  }

  void add(Chosen &chosen, Index party) const {
    for (const Taking &taking : takings_of_[party]) chosen.left[taking.bound] -= taking.weight;
    chosen.members.set(party);
  }

  // A set drawn in random order, the best of some: to go by the number of new pairs alone makes sets that differ in
  // little.
  Chosen best_of_drawn(const Chosen &begin) {
    Chosen best = filled(begin);
    std::size_t most = new_pairs(best);
    for (int drawn = 1; drawn < kDrawnSets; ++drawn) {
      Chosen next = filled(begin);
      const std::size_t pairs = new_pairs(next);
      if (pairs <= most) continue;
      best = std::move(next);
      most = pairs;
    }
    return best;
  }

  Chosen filled(Chosen chosen) {
    for (Index last = order_.size(); last > 1; --last) std::swap(order_[last - 1], order_[random_() % last]);
    for (const Index party : order_) {
      if (fits(chosen, party)) add(chosen, best_rival(chosen, party));
    }
    return chosen;
  }

  /// The party, or one that it would exclude: that which makes most new pairs.
  Index best_rival(const Chosen &chosen, Index party) const {
    Index best = party;
    std::size_t most = gain(chosen, party);
    for (const Taking &taking : takings_of_[party]) {
      if (chosen.left[taking.bound] != taking.weight) continue;
      for (const Index rival : members_of_[taking.bound]) {
        if (rival == party || !fits(chosen, rival)) continue;
        const std::size_t pairs = gain(chosen, rival);
        if (pairs <= most) continue;
        best = rival;
        most = pairs;
      }
    }
    return best;
  }

  std::size_t gain(const Chosen &chosen, Index party) const {
    return 2 * uncovered_[party].count_common(chosen.members) + (uncovered_[party].test(party) ? 1 : 0);
  }

  std::size_t new_pairs(const Chosen &chosen) const {
    std::size_t pairs = 0;
    for (Index party = 0; party < parties_.size(); ++party) {
      if (chosen.members.test(party)) pairs += uncovered_[party].count_common(chosen.members);
    }
    return pairs;
  }

  NumberSet take(const Chosen &chosen) {
    NumberSet set;
    for (Index party = 0; party < parties_.size(); ++party) {
      if (!chosen.members.test(party)) continue;
      set.push_back(parties_[party]);
      uncovered_[party].remove(chosen.members);
    }
    return set;
  }

  NumberSet parties_;
  std::vector<std::vector<Taking>> takings_of_;  ///< by party
  std::vector<std::vector<Index>> members_of_;   ///< by bound
  std::vector<std::size_t> room_;                ///< by bound, for an empty set
  std::vector<Bits> uncovered_;                  ///< by party: those it is not yet together with
  std::vector<Index> order_;
  std::minstd_rand random_;  ///< the same sets in every run
};

}  // namespace

Bound within(const Bound &bound, const NumberSet &set) {
  Bound left{{}, bound.most};
  for (std::size_t i = 0; i < bound.parties.size(); ++i) {
    if (!contains(set, bound.parties[i])) continue;
    left.parties.push_back(bound.parties[i]);
    left.weights.push_back(bound.weight(i));
  }
  return left;
}

IndependentSets independent_sets(const std::vector<Bound> &bounds, const NumberSet &kept, std::size_t most_sets,
                                 const std::function<bool()> &is_over) {
  return Covering(bounds, kept).run(most_sets, is_over);
}

}  // namespace diagnosis
