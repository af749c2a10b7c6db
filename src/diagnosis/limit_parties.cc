#include "diagnosis/limit_parties.h"

#include <algorithm>
#include <map>
#include <utility>

#include "diagnosis/confirmation.h"

namespace diagnosis {
namespace {

// Of entries that stand for each other so many are tried: one of them may have a fault of its own that hides the limit.
constexpr std::size_t kMostTried = 3;

/// Counts how many of a conflict's parties must go.
class Counting {
 public:
  Counting(const SearchContext &context, FoundConflict &conflict)
      : context_(context), conflict_(conflict), limit_(context, conflict.message) {
    for (const std::uint32_t party : conflict.parties) shares_.push_back({party, limit_.weight(party)});
  }

  // Fewest are enough of what takes most, or of all without which nothing makes the library look.
  void run() {
    const auto is_lighter = [](const Share &a, const Share &b) { return a.weight < b.weight; };
    std::stable_sort(shares_.begin(), shares_.end(), is_lighter);
    const bool is_uniform = !is_lighter(shares_.front(), shares_.back());
    keep_looking();
    conflict_.enough_of_any = fewest();
    conflict_.too_many = conflict_.enough_of_any;
    if (!is_uniform) {
      std::stable_sort(shares_.rbegin(), shares_.rend(), is_lighter);
      conflict_.too_many = fewest();
    }
    NumberSet looked_at = conflict_.parties;
    std::erase_if(looked_at, [this](std::uint32_t party) { return !holds_touched(context_, party); });
    if (looked_at.size() < conflict_.too_many && is_silent_without(looked_at)) conflict_.too_many = looked_at.size();
  }

 private:
  /// Puts what makes the library look last, so that all others are left out first.
  void keep_looking() {
    const auto last = std::find_if(shares_.rbegin(), shares_.rend(),
                                   [this](const Share &share) { return holds_touched(context_, share.entry); });
    if (last != shares_.rend()) std::rotate(last.base() - 1, last.base(), shares_.end());
  }

  bool is_silent_without(const NumberSet &gone) const {
    const NumberSet rest = context_.entries.without(conflict_.entries, gone);
    return rest.empty() || !context_.oracle.reproduces(rest, conflict_.message);
  }

  bool is_silent_without_first(std::size_t number) const {
    NumberSet gone;
    for (std::size_t i = 0; i < number; ++i) gone.push_back(shares_[i].entry);
    normalise(gone);
    return is_silent_without(gone);
  }

  /// How many of the first shares, left out, silence the limit: what the weights make likely is asked first, the rest
  /// by bisection.
  std::size_t fewest() const {
    std::size_t too_few = 0;
    std::size_t enough = shares_.size();
    const auto ask = [&](std::size_t number) {
      if (number > too_few && number < enough) (is_silent_without_first(number) ? enough : too_few) = number;
    };
    const std::size_t likely = likely_surplus();
    ask(likely);
    if (likely > 0) ask(likely - 1);
    while (enough - too_few > 1) ask(too_few + (enough - too_few) / 2);
    return enough;
  }

  std::size_t likely_surplus() const {
    std::size_t left = sum_of(shares_);
    std::size_t number = 0;
    for (; number < shares_.size() && limit_.is_known() && left > limit_.allowed(); ++number) {
      left -= shares_[number].weight;
    }
    return number;
  }

  const SearchContext &context_;
  FoundConflict &conflict_;
  Limit limit_;
  std::vector<Share> shares_;
};

/// Finds who takes part in exceeding a limit: of what is counted together, each alone within the limit.
class PartySearch {
 public:
  PartySearch(const SearchContext &context, std::uint32_t message, std::size_t allowed, std::vector<Share> shares)
      : context_(context), message_(message), allowed_(allowed), shares_(std::move(shares)) {}

  std::optional<FoundConflict> run() {
    std::map<std::pair<std::size_t, bool>, std::vector<Share>> alike;
    for (const Share &share : shares_) alike[{share.weight, is_touched(context_, share.entry)}].push_back(share);
    for (const auto &[kind, shares] : alike) {
      if (kind.second) add_parties(shares);
      if (kind.second) looks_.push_back({shares.front().entry});
    }
    find_triggers();
    for (const auto &[kind, shares] : alike) {
      if (!kind.second) add_parties(shares);
    }
    if (parties_.empty() || context_.oracle.has_ended()) return std::nullopt;
    normalise(parties_);
    FoundConflict conflict;
    conflict.entries = context_.entries.closure(united(parties_, triggers_));
    conflict.message = message_;
    conflict.parties = parties_;
    conflict.triggers = triggers_;
    conflict.exceeding = exceeding_;
    Counting(context_, conflict).run();
    const bool is_counted = conflict.enough_of_any < parties_.size() && !context_.oracle.has_ended();
    return is_counted ? std::optional(std::move(conflict)) : std::nullopt;
  }

 private:
  void add_parties(const std::vector<Share> &alike) {
    const auto end = alike.begin() + static_cast<std::ptrdiff_t>(std::min(alike.size(), kMostTried));
    if (!std::any_of(alike.begin(), end, [this](const Share &share) { return is_party(share); })) return;
    for (const Share &share : alike) parties_.push_back(share.entry);
  }

  bool is_party(const Share &share) {
    if (is_touched(context_, share.entry)) return is_pivotal(share, {});
    return std::any_of(looks_.begin(), looks_.end(), [&](const NumberSet &look) { return is_pivotal(share, look); });
  }

  /// There are others that, with what makes the library look, keep to the limit, and no longer with this one.
  bool is_pivotal(const Share &own, const NumberSet &look) {
    const NumberSet beside = context_.entries.closure(look);
    std::vector<Share> others;
    std::size_t taken = 0;
    for (const Share &share : shares_) {
      if (share.entry == own.entry) continue;
      if (contains(beside, share.entry)) {
        taken += share.weight;
      } else {
        others.push_back(share);
      }
    }
    if (taken > allowed_) return false;
    const std::size_t free = allowed_ - taken;
    const std::optional<NumberSet> chosen = subset_of_sum(others, free - std::min(free, own.weight - 1), free);
    if (!chosen || !is_drawn_only_with({own.entry}, united(*chosen, look))) return false;
    exceeding_.push_back(context_.entries.closure(united(united(*chosen, look), {own.entry})));
    return true;
  }

  bool is_drawn_only_with(const NumberSet &own, const NumberSet &others) const {
    const NumberSet all = context_.entries.closure(united(own, others));
    return context_.oracle.reproduces(all, message_) &&
           !context_.oracle.reproduces(context_.entries.without(all, own), message_);
  }

  /// Where what stays as it is exceeds the limit, each of the commit's other changes may make the library look.
  void find_triggers() {
    NumberSet in_force;
    std::size_t sum = 0;
    for (const Share &share : shares_) {
      if (sum > allowed_ || is_touched(context_, share.entry)) continue;
      in_force.push_back(share.entry);
      sum += share.weight;
    }
    if (sum <= allowed_ || !is_in_force(context_, context_.entries.closure(in_force), message_)) return;
    std::size_t asked = 0;
    for (const std::uint32_t entry : likely_triggers(context_, in_force, nullptr)) {
      if (contains(parties_, entry)) continue;
      if (++asked > kMostTriggers || context_.oracle.has_ended()) break;
      if (is_drawn_only_with({entry}, in_force)) triggers_.push_back(entry);
    }
    for (const std::uint32_t trigger : triggers_) looks_.insert(looks_.begin(), NumberSet{trigger});
    normalise(triggers_);
  }

  const SearchContext &context_;
  std::uint32_t message_;
  std::size_t allowed_;
  std::vector<Share> shares_;  ///< by entry
  NumberSet parties_;
  NumberSet triggers_;
  std::vector<NumberSet> exceeding_;
  std::vector<NumberSet> looks_;  ///< each makes the library look at what stays as it is
};

}  // namespace

std::optional<FoundConflict> find_limit_parties(const SearchContext &context, std::uint32_t message,
                                                const std::vector<Share> &shares) {
  return PartySearch(context, message, Limit(context, message).allowed(), shares).run();
}

void count_too_many(const SearchContext &context, FoundConflict &conflict) { Counting(context, conflict).run(); }

}  // namespace diagnosis
