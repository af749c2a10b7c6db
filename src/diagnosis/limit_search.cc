#include "diagnosis/limit_search.h"

#include <algorithm>
#include <bit>
#include <map>
#include <optional>
#include <string_view>
#include <utility>

#include "diagnosis/confirmation.h"
#include "diagnosis/minimisation.h"
#include "diagnosis/name_hints.h"
#include "diagnosis/port_use.h"
#include "diagnosis/subset_sum.h"
#include "rules/limit_message.h"

namespace diagnosis {
namespace {

// Of entries that stand for each other so many are tried: one of them may have a fault of its own that hides the limit.
constexpr std::size_t kMostTried = 3;

// Where every set of entries was asked about, every choice of so few parties is looked at.
constexpr std::size_t kFewParties = 12;

/// The lists whose entries a limit counts.
bool is_counted(std::string_view rule, std::string_view list) {
  if (rule == "vpn-limit") return list == "vpn";
  if (rule == "pseudowire-limit") return list == "neighbor" || list == "backup-neighbor";
  return list == "access-interface";
}

/// What a limit counts and how much it allows, by its text.
class Limit {
 public:
  Limit(const SearchContext &context, std::uint32_t message)
      : context_(context),
        rule_(context.messages[message].rule->id),
        text_(context.messages[message].verdict.text),
        numbers_(rules::parse_limit_message(text_)) {}

  /// The text names the limit.
  bool is_known() const { return numbers_.has_value(); }

  std::size_t allowed() const { return static_cast<std::size_t>(std::max<std::int64_t>(numbers_->allowed, 0)); }

  /// How much of the limit the entry takes; 0 for what it does not count.
  std::size_t weight(std::uint32_t entry) const {
    const MergedNode &node = context_.entries.node(entry);
    if (node.after == nullptr || !is_counted(rule_, node.schema->name)) return 0;
    if (!rule_.starts_with("encapsulation")) return 1;
    const std::optional<PortUse> use = port_use(context_.entries, entry);
    if (rule_ == "encapsulation-interface-range-limit" && !holds_name(text_, use->port)) return 0;
    return rule_ == "encapsulation-vlan-limit" ? use->counted_vlans : use->counted_ranges;
  }

  /// What is counted together: all of a kind, or the attachments of one VPN.
  std::vector<std::vector<Share>> groups(const NumberSet &set) const {
    std::map<std::uint32_t, std::vector<Share>> groups;
    for (const std::uint32_t entry : set) {
      const std::size_t own = weight(entry);
      if (own != 0)
        groups[rule_ == "access-interface-limit" ? context_.entries[entry].parent : 0].push_back({entry, own});
    }
    std::vector<std::vector<Share>> exceeding;
    for (auto &[name, group] : groups) {
      if (sum_of(group) > allowed()) exceeding.push_back(std::move(group));
    }
    return exceeding;
  }

  static std::size_t sum_of(const std::vector<Share> &shares) {
    std::size_t sum = 0;
    for (const Share &share : shares) sum += share.weight;
    return sum;
  }

 private:
  const SearchContext &context_;
  std::string_view rule_;
  std::string text_;
  std::optional<rules::LimitNumbers> numbers_;
};

NumberSet entries_of(const std::vector<Share> &shares) {
  NumberSet entries;
  for (const Share &share : shares) entries.push_back(share.entry);
  return entries;
}

bool is_touched(const SearchContext &context, std::uint32_t entry) {
  return context.status_of(entry) != ChangeStatus::unchanged;
}

/// Something that the commit changes stands in the entry, or the entry is changed itself.
bool holds_touched(const SearchContext &context, std::uint32_t entry) {
  for (std::uint32_t inner = entry; inner < context.entries[entry].end; ++inner) {
    if (is_touched(context, inner)) return true;
  }
  return false;
}

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
    std::size_t left = Limit::sum_of(shares_);
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

/// The conflicts of what is counted together in the whole commit or, where this does not draw the message, in the set.
void add_conflicts(const SearchContext &context, const Limit &limit, std::uint32_t message, std::vector<Share> group,
                   FoundConflicts &conflicts) {
  const auto is_too_much_alone = [&limit](const Share &share) { return share.weight > limit.allowed(); };
  for (const Share &share : group) {
    const NumberSet own = context.entries.closure({share.entry});
    if (!is_too_much_alone(share) || !context.oracle.reproduces(own, message)) continue;
    conflicts.push_back(minimise(context, own, message));
  }
  std::erase_if(group, is_too_much_alone);
  if (Limit::sum_of(group) <= limit.allowed()) return;
  if (auto conflict = PartySearch(context, message, limit.allowed(), std::move(group)).run()) {
    conflicts.push_back(*std::move(conflict));
  }
}

bool shares_entry(const std::vector<Share> &group, const std::vector<Share> &other) {
  return !intersection(entries_of(group), entries_of(other)).empty();
}

/// The smallest number of parties one of which is in every set that exceeds the limit, where all such sets are known.
std::size_t count_by_sets(const FoundConflict &conflict) {
  const std::size_t parties = conflict.parties.size();
  std::size_t fewest = parties;
  for (std::uint32_t choice = 1; choice < (1U << parties); ++choice) {
    const auto number = static_cast<std::size_t>(std::popcount(choice));
    if (number >= fewest) continue;
    NumberSet gone;
    for (std::size_t i = 0; i < parties; ++i) {
      if ((choice >> i & 1U) != 0) gone.push_back(conflict.parties[i]);
    }
    const bool is_in_each = std::none_of(conflict.exceeding.begin(), conflict.exceeding.end(),
                                         [&gone](const NumberSet &set) { return intersection(set, gone).empty(); });
    if (is_in_each) fewest = number;
  }
  return fewest;
}

void take_in(FoundConflict &conflict, const FoundConflict &other) {
  conflict.exceeding.insert(conflict.exceeding.end(), other.exceeding.begin(), other.exceeding.end());
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

/// Counts again how many are too many of parties that were found in parts.
void count_parties(const SearchContext &context, FoundConflict &conflict) {
  if (conflict.enough_of_any != 0) return;
  if (context.is_enumerated && conflict.parties.size() <= kFewParties) {
    conflict.too_many = count_by_sets(conflict);
  } else {
    Counting(context, conflict).run();
  }
}

/// So many parties are in the running configuration that they may be too many there.
bool may_be_in_force(const SearchContext &context, const FoundConflict &conflict) {
  const auto before = std::count_if(conflict.parties.begin(), conflict.parties.end(),
                                    [&](std::uint32_t party) { return context.entries.node(party).before != nullptr; });
  const bool is_counted = conflict.enough_of_any != 0 && conflict.enough_of_any == conflict.too_many;
  return !is_counted || static_cast<std::size_t>(before) + conflict.too_many > conflict.parties.size();
}

}  // namespace

std::vector<NumberSet> counted_groups(const SearchContext &context, const NumberSet &set, std::uint32_t message) {
  const Limit limit(context, message);
  std::vector<NumberSet> groups;
  if (!limit.is_known()) return groups;
  for (const std::vector<Share> &group : limit.groups(set)) groups.push_back(entries_of(group));
  return groups;
}

FoundConflicts find_exceeded_limits(const SearchContext &context, const NumberSet &entries, std::uint32_t message) {
  const Limit limit(context, message);
  FoundConflicts conflicts;
  if (!limit.is_known()) return conflicts;
  const std::vector<std::vector<Share>> of_all = limit.groups(context.all());
  for (std::vector<Share> &group : limit.groups(entries)) {
    const auto whole = std::find_if(of_all.begin(), of_all.end(),
                                    [&group](const std::vector<Share> &all) { return shares_entry(all, group); });
    const bool is_whole =
        whole != of_all.end() && context.oracle.reproduces(context.entries.closure(entries_of(*whole)), message);
    add_conflicts(context, limit, message, is_whole ? *whole : std::move(group), conflicts);
  }
  return conflicts;
}

void join_limits(const SearchContext &context, FoundConflicts &conflicts) {
  FoundConflicts joined;
  for (FoundConflict &conflict : conflicts) {
    if (context.messages[conflict.message].counts()) {
      if (conflict.exceeding.empty()) conflict.exceeding.push_back(conflict.entries);
      take_in_all(conflict, joined);
    }
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

}  // namespace diagnosis
