#include "diagnosis/limit_search.h"

#include <algorithm>
#include <bit>
#include <map>
#include <string_view>

#include "diagnosis/confirmation.h"
#include "diagnosis/minimisation.h"
#include "diagnosis/name_hints.h"
#include "diagnosis/port_use.h"

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
  }

  FoundConflict run() const {
    for (const NumberSet &counted : candidates()) {
      const NumberSet closed = entries_.closure(counted);
      if (counted.empty() || !context_.oracle.reproduces(closed, message_)) continue;
      const std::size_t too_many = fewest(closed, in_order_of_leaving(counted));
      if (too_many == 0 || too_many == counted.size()) continue;
      FoundConflict conflict;
      conflict.entries = closed;
      conflict.message = message_;
      conflict.parties = counted;
      conflict.too_many = too_many;
      return conflict;
    }
    return minimise(context_, set_, message_);
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

  /// How much of the limit the entry takes, at most.
  std::size_t weight(std::uint32_t entry) const {
    if (!rule_.starts_with("encapsulation")) return 1;
    const std::optional<PortUse> use = port_use(entries_, entry);
    if (rule_ == "encapsulation-interface-range-limit" && !holds_name(text_, use->port)) return 0;
    return rule_ == "encapsulation-vlan-limit" ? use->counted_vlans : use->counted_ranges;
  }

  /// What the commit adds comes first, then what takes most.
  NumberSet in_order_of_leaving(const NumberSet &counted) const {
    NumberSet order(counted.rbegin(), counted.rend());
    std::stable_sort(order.begin(), order.end(),
                     [this](std::uint32_t a, std::uint32_t b) { return weight(a) > weight(b); });
    return order;
  }

  std::size_t fewest(const NumberSet &closed, const NumberSet &order) const {
    const auto is_kept_without = [&](std::size_t number) {
      NumberSet gone(order.begin(), order.begin() + static_cast<std::ptrdiff_t>(number));
      normalise(gone);
      const NumberSet rest = entries_.without(closed, gone);
      return rest.empty() || !context_.oracle.reproduces(rest, message_);
    };
    std::size_t too_few = 0;
    std::size_t enough = order.size();
    while (enough - too_few > 1) {
      const std::size_t middle = too_few + (enough - too_few) / 2;
      (is_kept_without(middle) ? enough : too_few) = middle;
    }
    return enough;
  }

  const SearchContext &context_;
  const Entries &entries_;
  const NumberSet &set_;
  std::uint32_t message_;
  std::string_view rule_;
  std::string_view text_;
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
  conflict.is_minimal = conflict.is_minimal && other.is_minimal;
}

}  // namespace

void join_limits(const SearchContext &context, FoundConflicts &conflicts) {
  FoundConflicts joined;
  for (FoundConflict &conflict : conflicts) {
    const bool counts = context.messages[conflict.message].counts();
    for (auto other = joined.begin(); counts && other != joined.end();) {
      const bool is_same =
          other->message == conflict.message && !intersection(other->parties, conflict.parties).empty();
      if (is_same) take_in(conflict, *other);
      other = is_same ? joined.erase(other) : other + 1;
    }
    joined.push_back(std::move(conflict));
  }
  conflicts = std::move(joined);
  for (FoundConflict &conflict : conflicts) {
    if (!context.messages[conflict.message].counts() || conflict.parties.empty()) continue;
    if (conflict.parties.size() <= kFewParties) conflict.too_many = count_too_many(context, conflict);
    conflict.is_preexisting = is_in_force(context, context.entries.closure(conflict.parties), conflict.message);
  }
}

FoundConflict find_exceeded_limit(const SearchContext &context, const NumberSet &entries, std::uint32_t message) {
  return LimitSearch(context, entries, message).run();
}

}  // namespace diagnosis
