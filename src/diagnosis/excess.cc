#include "diagnosis/excess.h"

#include <algorithm>

#include "rules/rule.h"

namespace diagnosis {
namespace {

std::vector<std::size_t> in_order_of_leaving(const ItemSet &within, const ExceededLimit &limit) {
  std::vector<std::size_t> order;
  for (std::size_t unit = within.size(); unit-- > 0;) {
    if (within[unit] && limit.counted[unit]) order.push_back(unit);
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

ItemSet both(ItemSet a, const ItemSet &b) {
  for (std::size_t i = 0; i < a.size(); ++i) a[i] = a[i] && b[i];
  return a;
}

bool exceeds(const host::Verdict &verdict, const ExceededLimit &limit) {
  return std::any_of(verdict.points.begin(), verdict.points.end(),
                     [&limit](const host::PointVerdict &point) { return is_same_limit(point, limit.answer); });
}

}  // namespace

bool is_same_limit(const host::PointVerdict &a, const host::PointVerdict &b) {
  const rules::Rule *rule = rules::rule_of_message(a.point, a.text);
  return rule != nullptr && rule->counts && rule == rules::rule_of_message(b.point, b.text);
}

Excess excess(const ChangeUnits &units, Inquiry &inquiry, const ItemSet &within, const ExceededLimit &limit) {
  const std::vector<std::size_t> order = in_order_of_leaving(within, limit);
  const auto first = [&](std::size_t number) {
    const ItemSet chosen = first_of(order, number, within.size());
    return Excess{chosen, with_dependents(units.items(), chosen)};
  };
  // Asked about alone, for the rest of the commit may exceed the same limit elsewhere.
  const ItemSet part = both(limit.part, within);
  const auto is_kept_without = [&](std::size_t number) {
    const std::optional<host::Verdict> verdict = inquiry.ask(units.shapes(without(part, first(number).gone)));
    return verdict && !exceeds(*verdict, limit);
  };
  if (is_kept_without(0) || !is_kept_without(order.size())) return first(0);
  std::size_t too_few = 0;
  std::size_t enough = order.size();
  while (enough - too_few > 1) {
    const std::size_t middle = too_few + (enough - too_few) / 2;
    (is_kept_without(middle) ? enough : too_few) = middle;
  }
  return first(enough);
}

}  // namespace diagnosis
