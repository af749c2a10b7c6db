#include "diagnosis/limit_search.h"

#include <algorithm>
#include <bit>
#include <map>
#include <numeric>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "diagnosis/confirmation.h"
#include "diagnosis/minimisation.h"
#include "diagnosis/name_hints.h"
#include "diagnosis/port_use.h"
#include "rules/limit_message.h"

namespace diagnosis {
namespace {

/// The lists whose entries a limit counts.
bool is_counted(std::string_view rule, std::string_view list) {
  if (rule == "vpn-limit") return list == "vpn";
  if (rule == "pseudowire-limit") return list == "neighbor" || list == "backup-neighbor";
  return list == "access-interface";
}

class LimitSearch {
 public:
  LimitSearch(const SearchContext &context, const NumberSet &entries, std::uint32_t message)
      : context_(context), entries_(context.entries), set_(entries), message_(message) {
    const Message &said = context.messages[message];
    rule_ = said.rule->id;
    text_ = said.verdict.text;
    numbers_ = rules::parse_limit_message(text_);
  }

  /// Nothing where it is not drawn by what it counts, or any one of these draws it.
  std::optional<FoundConflict> run() const {
    const std::vector<NumberSet> all = candidates();
    for (const NumberSet &counted : all) {
      if (auto conflict = conflict_of(counted, {})) return conflict;
    }
    for (const NumberSet &counted : all) {
      if (auto conflict = conflict_of(counted, possible_triggers(counted))) return conflict;
    }
    return std::nullopt;
  }

  /// The conflict of these parties, with one of the triggers where they need one.
  std::optional<FoundConflict> conflict_of(const NumberSet &counted, NumberSet triggers) const {
    if (counted.empty() || !may_exceed(counted) || !draws(united(counted, triggers))) return std::nullopt;
    if (triggers.size() > 1) {
      triggers = one_of(counted, std::move(triggers));
      if (!draws(united(counted, triggers))) return std::nullopt;
    }
    FoundConflict conflict;
    conflict.entries = entries_.closure(united(counted, triggers));
    conflict.message = message_;
    conflict.parties = counted;
    conflict.triggers = std::move(triggers);
    count(conflict);
    const bool is_known = conflict.enough_of_any < counted.size() && !context_.oracle.has_ended();
    return is_known ? std::optional(std::move(conflict)) : std::nullopt;
  }

 private:
  /// What it may count: all of a kind, or those of one VPN or one interface.
  std::vector<NumberSet> candidates() const {
    std::map<std::uint32_t, NumberSet> by_vpn;
    NumberSet all;
    for (const std::uint32_t entry : set_) {
      const MergedNode &node = entries_.node(entry);
      if (node.after == nullptr || !is_counted(rule_, node.schema->name) || weight(entry) == 0) continue;
      by_vpn[entries_[entry].parent].push_back(entry);
      all.push_back(entry);
    }
    if (rule_ != "access-interface-limit") return {all};
    std::vector<NumberSet> candidates;
    for (auto &[vpn, attachments] : by_vpn) candidates.push_back(std::move(attachments));
    std::stable_sort(candidates.begin(), candidates.end(),
                     [](const NumberSet &a, const NumberSet &b) { return a.size() > b.size(); });
    return candidates;
  }

  bool draws(const NumberSet &set) const { return context_.oracle.reproduces(entries_.closure(set), message_); }

  /// What the commit touches beside what is counted: it may make the library look.
  NumberSet possible_triggers(const NumberSet &counted) const {
    NumberSet triggers;
    for (const std::uint32_t entry : minus(entries_.innermost(set_), counted)) {
      if (is_touched(entry)) triggers.push_back(entry);
    }
    return triggers;
  }

  /// One of the triggers that is enough, by bisection, if any one is.
  NumberSet one_of(const NumberSet &counted, NumberSet triggers) const {
    while (triggers.size() > 1) {
      const auto middle = triggers.begin() + static_cast<std::ptrdiff_t>(triggers.size() / 2);
      NumberSet half(triggers.begin(), middle);
      if (!draws(united(counted, half))) half.assign(middle, triggers.end());
      triggers = std::move(half);
    }
    return triggers;
  }

  /// By the numbers of the text: false only where these many cannot be too many.
  bool may_exceed(const NumberSet &counted) const {
    return !numbers_ || numbers_->allowed < 0 || weight_of(counted) > static_cast<std::size_t>(numbers_->allowed);
  }

  std::size_t weight_of(const NumberSet &set) const {
    return std::accumulate(set.begin(), set.end(), std::size_t{0},
                           [this](std::size_t sum, std::uint32_t entry) { return sum + weight(entry); });
  }

  /// How much of the limit the entry takes, at most.
  std::size_t weight(std::uint32_t entry) const {
    if (!rule_.starts_with("encapsulation")) return 1;
    const std::optional<PortUse> use = port_use(entries_, entry);
    if (rule_ == "encapsulation-interface-range-limit" && !holds_name(text_, use->port)) return 0;
    return rule_ == "encapsulation-vlan-limit" ? use->counted_vlans : use->counted_ranges;
  }

  // Fewest are enough of what takes most; without what the commit touches nothing makes the library look.
  void count(FoundConflict &conflict) const {
    NumberSet order(conflict.parties.rbegin(), conflict.parties.rend());
    const auto helps_less = [this](std::uint32_t a, std::uint32_t b) {
      return std::pair(weight(a), is_touched(a)) < std::pair(weight(b), is_touched(b));
    };
    std::stable_sort(order.begin(), order.end(), helps_less);
    conflict.enough_of_any = fewest(conflict.entries, order);
    conflict.too_many = conflict.enough_of_any;
    if (!helps_less(order.front(), order.back())) return;
    std::reverse(order.begin(), order.end());
    conflict.too_many = fewest(conflict.entries, order);
  }

  bool is_touched(std::uint32_t entry) const { return status_of(entries_, entry) != ChangeStatus::unchanged; }

  /// How many of the order's first, left out, silence the limit: first what its text makes likely, then by bisection.
  std::size_t fewest(const NumberSet &closed, const NumberSet &order) const {
    const auto is_silent_without = [&](std::size_t number) {
      NumberSet gone(order.begin(), order.begin() + static_cast<std::ptrdiff_t>(number));
      normalise(gone);
      const NumberSet rest = entries_.without(closed, gone);
      return rest.empty() || !context_.oracle.reproduces(rest, message_);
    };
    std::size_t too_few = 0;
    std::size_t enough = order.size();
    const auto ask = [&](std::size_t number) {
      if (number > too_few && number < enough) (is_silent_without(number) ? enough : too_few) = number;
    };
    const std::size_t likely = std::min(likely_surplus(order), touched_first(order));
    ask(likely);
    if (likely > 0) ask(likely - 1);
    while (enough - too_few > 1) ask(too_few + (enough - too_few) / 2);
    return enough;
  }

  /// How many of the order's first take what is too much by the text; 0 if it tells no numbers.
  std::size_t likely_surplus(const NumberSet &order) const {
    if (!numbers_ || !numbers_->configured) return 0;
    std::int64_t left = *numbers_->configured - numbers_->allowed;
    std::size_t number = 0;
    for (; number < order.size() && left > 0; ++number) left -= static_cast<std::int64_t>(weight(order[number]));
    return number;
  }

  /// How many the order begins with that the commit touches; all if there are others behind that it touches, too.
  std::size_t touched_first(const NumberSet &order) const {
    const auto is_touched = [this](std::uint32_t entry) { return this->is_touched(entry); };
    const auto end = std::find_if_not(order.begin(), order.end(), is_touched);
    return std::any_of(end, order.end(), is_touched) ? order.size() : static_cast<std::size_t>(end - order.begin());
  }

  const SearchContext &context_;
  const Entries &entries_;
  const NumberSet &set_;
  std::uint32_t message_;
  std::string_view rule_;
  std::string text_;
  std::optional<rules::LimitNumbers> numbers_;
};

constexpr std::size_t kFewParties = 12;

/// The smallest number of parties whose leaving out silences a limit of few parties: every choice is asked about.
std::size_t count_too_many(const SearchContext &context, const FoundConflict &conflict) {
  const std::size_t parties = conflict.parties.size();
  std::size_t fewest = parties;
  for (std::uint32_t choice = 1; choice < (1U << parties); ++choice) {
    const auto number = static_cast<std::size_t>(std::popcount(choice));
    if (number >= fewest) continue;
    NumberSet gone;
    for (std::size_t i = 0; i < parties; ++i) {
      if ((choice >> i & 1U) != 0) gone.push_back(conflict.parties[i]);
    }
    const std::optional<NumberSet> answer =
        context.oracle.ask({context.entries.without(conflict.entries, gone), {}, false});
    if (!answer) break;
    if (!contains(*answer, conflict.message)) fewest = number;
  }
  return fewest;
}

void take_in(FoundConflict &conflict, const FoundConflict &other) {
  conflict.entries = united(conflict.entries, other.entries);
  conflict.parties = united(conflict.parties, other.parties);
  conflict.triggers = minus(united(conflict.triggers, other.triggers), conflict.parties);
  conflict.too_many = std::max(conflict.too_many, other.too_many);
  conflict.enough_of_any = 0;
  conflict.is_minimal = conflict.is_minimal && other.is_minimal;
}

/// Takes in all conflicts of the same limit that share a party with this one, or with one that was taken in.
void take_in_all(FoundConflict &conflict, FoundConflicts &others) {
  const auto is_same = [&conflict](const FoundConflict &other) {
    return other.message == conflict.message && !intersection(other.parties, conflict.parties).empty();
  };
  while (true) {
    const auto same = std::find_if(others.begin(), others.end(), is_same);
    if (same == others.end()) return;
    take_in(conflict, *same);
    others.erase(same);
  }
}

/// Counts again how many are too many, unless it was asked for all the parties.
void count_parties(const SearchContext &context, FoundConflict &conflict) {
  if (conflict.enough_of_any != 0) return;
  if (conflict.parties.size() <= kFewParties) {
    conflict.too_many = count_too_many(context, conflict);
    return;
  }
  const LimitSearch search(context, conflict.entries, conflict.message);
  const auto counted = search.conflict_of(conflict.parties, conflict.triggers);
  if (!counted) return;
  conflict.too_many = counted->too_many;
  conflict.enough_of_any = counted->enough_of_any;
}

/// So many parties are in the running configuration that they may be too many there.
bool may_be_in_force(const SearchContext &context, const FoundConflict &conflict) {
  const auto before = std::count_if(conflict.parties.begin(), conflict.parties.end(),
                                    [&](std::uint32_t party) { return context.entries.node(party).before != nullptr; });
  const bool is_counted = conflict.enough_of_any != 0 && conflict.enough_of_any == conflict.too_many;
  return !is_counted || static_cast<std::size_t>(before) + conflict.too_many > conflict.parties.size();
}

}  // namespace

void join_limits(const SearchContext &context, FoundConflicts &conflicts) {
  FoundConflicts joined;
  for (FoundConflict &conflict : conflicts) {
    if (context.messages[conflict.message].counts()) take_in_all(conflict, joined);
    joined.push_back(std::move(conflict));
  }
  conflicts = std::move(joined);
  for (FoundConflict &conflict : conflicts) {
    if (!context.messages[conflict.message].counts() || conflict.parties.empty()) continue;
    count_parties(context, conflict);
    conflict.is_preexisting = may_be_in_force(context, conflict) &&
                              is_in_force(context, context.entries.closure(conflict.parties), conflict.message);
  }
}

// All that it counts in the commit is asked about first, so that one limit is not found in several parts.
FoundConflict find_exceeded_limit(const SearchContext &context, const NumberSet &entries, std::uint32_t message) {
  const NumberSet all = context.all();
  if (auto conflict = LimitSearch(context, all, message).run()) return *std::move(conflict);
  if (entries != all) {
    if (auto conflict = LimitSearch(context, entries, message).run()) return *std::move(conflict);
  }
  return minimise(context, entries, message);
}

}  // namespace diagnosis
