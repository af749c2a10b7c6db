#include "diagnosis/fault_search.h"

#include <algorithm>
#include <utility>

#include "diagnosis/configuration_items.h"
#include "diagnosis/parties.h"
#include "rules/rule.h"

namespace diagnosis {
namespace {

// A limit's message needs every single thing that it counts: to try each of a thousand neighbours alone would take a
// thousand questions and find nothing.
constexpr std::size_t kFinestShareOfCounted = 32;

// Some thousand questions about a commit of a few entries, a moment's work.
constexpr std::size_t kExhaustiveBelow = 10;

ReductionOptions reduction_options(bool counts) {
  return {.finest_share = counts ? kFinestShareOfCounted : 0, .exhaustive_below = kExhaustiveBelow};
}

/// The units that no other of the set needs.
ItemSet outermost(const Items &items, const ItemSet &set) {
  ItemSet result = set;
  for (std::size_t i = 0; i < set.size(); ++i) {
    if (!set[i]) continue;
    for (const std::size_t needed : items[i].needs) result[needed] = false;
  }
  return result;
}

}  // namespace

FoundFault FaultSearch::find(const ItemSet &within, const Wanted &wanted) const {
  const bool counts = is_count(wanted.answer);
  const ItemSet part = smallest_part(within, wanted, counts);
  const Shapes shapes = smallest_configuration(part, wanted, counts);
  ItemSet own = own_units(within, part);
  return {{wanted.answer, change_parts(own), change_parts(without(part, own)), parties_of(places_, shapes),
           SmallestCommit{places_.running(shapes), places_.candidate(shapes)}, 0, !inquiry_.is_over()},
          part,
          own,
          with_dependents(units_.items(), own)};
}

ItemSet FaultSearch::smallest_part(const ItemSet &within, const Wanted &wanted, bool counts) const {
  const auto draws = [&](const ItemSet &units) { return inquiry_.draws(units_.shapes(units), wanted); };
  return reduce(units_.items(), within, draws, reduction_options(counts));
}

Shapes FaultSearch::smallest_configuration(const ItemSet &part, const Wanted &wanted, bool counts) const {
  const ConfigurationItems items(places_, units_.shapes(part));
  const auto draws = [&](const ItemSet &left) { return inquiry_.draws(items.shapes(left), wanted); };
  return items.shapes(reduce(items.items(), ItemSet(items.size(), true), draws, reduction_options(counts)));
}

// A group that the commit adds is needed by all its VPNs: it stays as long as one of them has no part in the fault.
ItemSet FaultSearch::own_units(const ItemSet &within, const ItemSet &part) const {
  const Items &items = units_.items();
  const ItemSet sure_to_go = with_dependents(items, outermost(items, part));
  const ItemSet rest = without(without(within, part), sure_to_go);
  return without(part, with_needs(items, rest));
}

std::vector<ChangePart> FaultSearch::change_parts(const ItemSet &units) const {
  std::vector<std::size_t> numbers;
  for (std::size_t unit = 0; unit < units.size(); ++unit) {
    if (units[unit]) numbers.push_back(units_.place(unit));
  }
  std::sort(numbers.begin(), numbers.end());
  std::vector<ChangePart> parts;
  for (const std::size_t number : numbers) {
    LeafValues values = values_of(places_[number], Shape::commit);
    parts.push_back({standing_of(places_[number], Shape::commit), places_.path_of(number), std::move(values.old_value),
                     std::move(values.new_value)});
  }
  return parts;
}

bool is_count(const host::PointVerdict &answer) {
  const rules::Rule *rule = rules::rule_of_message(answer.point, answer.text);
  return rule != nullptr && rule->counts;
}

}  // namespace diagnosis
