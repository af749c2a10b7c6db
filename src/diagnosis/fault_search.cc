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

/// The entry that stands for a thing which the place is or stands in, or the place at the top.
std::size_t thing_around(const Places &places, std::size_t number) {
  while (!is_thing(places[number]) && places[number].parent != number) number = places[number].parent;
  return number;
}

}  // namespace

// A part may draw the message only because another part that mends it is left out: a service port without the service
// that the same commit switches on. It is no fault of this commit, but what another thing draws in the same words is.
FoundFault FaultSearch::find(const ItemSet &within, const ItemSet &whole, const Wanted &wanted) const {
  ItemSet left = within;
  while (true) {
    const ItemSet part = smallest_part(left, wanted);
    const Shapes smallest = smallest_configuration(part, wanted);
    const bool is_mended_by_rest = is_mended(smallest, whole);
    ItemSet rest = without(left, taken_back(within, part));
    if (!is_mended_by_rest || !inquiry_.draws(units_.shapes(rest), wanted)) {
      FoundFault found = found_fault(within, part, smallest, wanted);
      found.is_mended = is_mended_by_rest;
      return found;
    }
    left = std::move(rest);
  }
}

FoundFault FaultSearch::found_fault(const ItemSet &within, const ItemSet &part, const Shapes &smallest,
                                    const Wanted &wanted) const {
  const ItemSet all = is_named_count(wanted.answer) ? with_all_that_counts(within, part, wanted) : part;
  const ItemSet own = own_units(within, all);
  Fault fault{wanted.answer,
              change_parts(own),
              change_parts(without(all, own)),
              parties_of(places_, smallest, places_at(part)),
              SmallestCommit{places_.running(smallest), places_.candidate(smallest)},
              0,
              inquiry_.is_in_running(smallest, wanted),
              !inquiry_.is_over()};
  const bool alone = fault.in_running && stands_alone(fault.parties, smallest, wanted);
  return {std::move(fault), all, own, taken_back(within, all), alone};
}

void FaultSearch::offer(FoundFault &found, const ItemSet &choices) const {
  found.fault.change = change_parts(choices);
  found.fault.scaffold = change_parts(without(found.part, choices));
}

// Such a message tells no more than the first one too many: what has to go is the rest as well.
ItemSet FaultSearch::with_all_that_counts(const ItemSet &within, ItemSet part, const Wanted &wanted) const {
  while (true) {
    const ItemSet rest = without(within, taken_back(within, part));
    if (!inquiry_.draws(units_.shapes(rest), wanted)) return part;
    const ItemSet more = either(part, smallest_part(rest, wanted));
    if (more == part) return part;
    part = more;
  }
}

// What the commit touches may be there to make the library look, or be a party itself.
bool FaultSearch::stands_alone(const std::vector<Party> &parties, Shapes smallest, const Wanted &wanted) const {
  for (const Party &party : parties) {
    if (party.standing == Standing::unchanged) continue;
    std::fill(smallest.begin() + static_cast<std::ptrdiff_t>(party.place),
              smallest.begin() + static_cast<std::ptrdiff_t>(places_[party.place].end), Shape::dropped);
  }
  return inquiry_.is_in_running(smallest, wanted);
}

/// The library accepts the things of the smallest commit with all that the units of `whole` make of them. Where it has
/// anything to say, that may hide the message.
bool FaultSearch::is_mended(const Shapes &smallest, const ItemSet &whole) const {
  Shapes shapes = units_.shapes(whole);
  for (std::size_t number = 0; number < shapes.size(); ++number) {
    const std::size_t thing = thing_around(places_, number);
    if (!places_[thing].is_there(smallest[thing])) shapes[number] = Shape::dropped;
  }
  const std::optional<host::Verdict> verdict = inquiry_.ask(shapes);
  return verdict && verdict->decision == host::Decision::accepted;
}

std::vector<bool> FaultSearch::places_at(const ItemSet &units) const {
  std::vector<bool> touched(places_.size(), false);
  for (std::size_t unit = 0; unit < units.size(); ++unit) {
    if (units[unit]) touched[units_.place(unit)] = true;
  }
  return touched;
}

ItemSet FaultSearch::smallest_part(const ItemSet &within, const Wanted &wanted) const {
  const auto draws = [&](const ItemSet &units) { return inquiry_.draws(units_.shapes(units), wanted); };
  return reduce(units_.items(), within, draws, reduction_options(is_count(wanted.answer)));
}

Shapes FaultSearch::smallest_configuration(const ItemSet &part, const Wanted &wanted) const {
  const ConfigurationItems items(places_, units_.shapes(part));
  const auto draws = [&](const ItemSet &left) { return inquiry_.draws(items.shapes(left), wanted); };
  const ItemSet least =
      reduce(items.items(), ItemSet(items.size(), true), draws, reduction_options(is_count(wanted.answer)));
  return inquiry_.without_left_out(items.shapes(least));
}

// A group that the commit adds is needed by all its VPNs: it stays as long as one of them has no part in the fault.
ItemSet FaultSearch::own_units(const ItemSet &within, const ItemSet &part) const {
  const Items &items = units_.items();
  const ItemSet sure_to_go = with_dependents(items, outermost(items, part));
  const ItemSet rest = without(without(within, part), sure_to_go);
  return without(part, with_needs(items, rest));
}

ItemSet FaultSearch::taken_back(const ItemSet &within, const ItemSet &part) const {
  return with_dependents(units_.items(), own_units(within, part));
}

std::vector<ChangePart> FaultSearch::change_parts(const ItemSet &units) const {
  const std::vector<bool> touched = places_at(units);
  std::vector<ChangePart> parts;
  for (std::size_t number = 0; number < touched.size(); ++number) {
    if (!touched[number]) continue;
    LeafValues values = values_of(places_[number]);
    parts.push_back({standing_of(places_[number]), places_.path_of(number), std::move(values.old_value),
                     std::move(values.new_value)});
  }
  return parts;
}

bool is_count(const host::PointVerdict &answer) {
  const rules::Rule *rule = rules::rule_of_message(answer.point, answer.text);
  return rule != nullptr && rule->counts;
}

bool is_named_count(const host::PointVerdict &answer) {
  const rules::Rule *rule = rules::rule_of_message(answer.point, answer.text);
  return rule != nullptr && rule->counts && rule->message.find("%s") != std::string_view::npos;
}

}  // namespace diagnosis
