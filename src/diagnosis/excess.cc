#include "diagnosis/excess.h"

#include <algorithm>
#include <functional>

#include "diagnosis/fault_search.h"
#include "rules/rule.h"

namespace diagnosis {
namespace {

std::vector<std::size_t> in_order_of_leaving(const Items &items, const ItemSet &within, const ExceededLimit &limit) {
  const ItemSet counted = outermost(items, both(limit.counted, within));
  std::vector<std::size_t> order;
  for (std::size_t unit = counted.size(); unit-- > 0;) {
    if (counted[unit]) order.push_back(unit);
  }
  std::stable_sort(order.begin(), order.end(), [&limit](std::size_t a, std::size_t b) {
    return limit.times_left_out[a] < limit.times_left_out[b];
  });
  return order;
}

ItemSet first_of(const std::vector<std::size_t> &order, std::size_t number, std::size_t units) {
  ItemSet set(units, false);
  for (std::size_t i = 0; i < number; ++i) set[order[i]] = true;
  return set;
}

bool exceeds(const host::Verdict &verdict, const ExceededLimit &limit) {
  const auto is_same = is_named_count(limit.answer) ? is_same_answer : is_same_limit;
  return std::any_of(verdict.points.begin(), verdict.points.end(),
                     [&](const host::PointVerdict &point) { return is_same(point, limit.answer); });
}

/// The counted units that the commit adds with others of them in it go with the last of these: an attachment without
/// the range that it came with would take the whole port.
ItemSet with_emptied(const Items &items, const ItemSet &within, const ExceededLimit &limit, ItemSet gone) {
  ItemSet had_some(gone.size(), false);
  ItemSet has_some(gone.size(), false);
  for (std::size_t unit = gone.size(); unit-- > 0;) {
    if (!within[unit]) continue;
    if (had_some[unit] && !has_some[unit] && limit.counted[unit]) gone[unit] = true;
    for (const std::size_t needed : items[unit].needs) {
      had_some[needed] = true;
      has_some[needed] = has_some[needed] || !gone[unit];
    }
  }
  return gone;
}

/// The fewest things, up to `most`, without which it is kept; 0 where it is kept anyway, and where that does not help.
std::size_t fewest(std::size_t most, const std::function<bool(std::size_t)> &is_kept_without) {
  if (is_kept_without(0) || !is_kept_without(most)) return 0;
  std::size_t too_few = 0;
  std::size_t enough = most;
  while (enough - too_few > 1) {
    const std::size_t middle = too_few + (enough - too_few) / 2;
    (is_kept_without(middle) ? enough : too_few) = middle;
  }
  return enough;
}

}  // namespace

bool is_same_limit(const host::PointVerdict &a, const host::PointVerdict &b) {
  const rules::Rule *rule = rules::rule_of_message(a.point, a.text);
  return rule != nullptr && rule->counts && rule == rules::rule_of_message(b.point, b.text);
}

Excess excess(const ChangeUnits &units, Inquiry &inquiry, const ItemSet &within, const ExceededLimit &limit) {
  const std::vector<std::size_t> order = in_order_of_leaving(units.items(), within, limit);
  const auto first = [&](std::size_t number) {
    const ItemSet chosen = first_of(order, number, within.size());
    return Excess{chosen, with_emptied(units.items(), within, limit, with_dependents(units.items(), chosen))};
  };
  const auto fewest_of = [&](const ItemSet &part) {
    return fewest(order.size(), [&](std::size_t number) {
      const std::optional<host::Verdict> verdict = inquiry.ask(units.shapes(without(part, first(number).gone)));
      return verdict && !exceeds(*verdict, limit);
    });
  };
  const std::size_t number = fewest_of(within);
  if (number != 0 || is_named_count(limit.answer)) return first(number);
  // The rest may exceed the same limit elsewhere.
  return first(fewest_of(both(limit.part, within)));
}

}  // namespace diagnosis
