#include "diagnosis/change_units.h"

#include <algorithm>
#include <limits>

namespace diagnosis {
namespace {

constexpr std::size_t kNoUnit = std::numeric_limits<std::size_t>::max();

bool is_unit_when_removed(const Place &place) {
  return place.after == nullptr && (place.is_entry() || place.is_leaf());
}

bool is_changed_leaf(const Place &place) {
  return place.is_leaf() && place.before != nullptr && place.after != nullptr &&
         place.before->value != place.after->value;
}

}  // namespace

// What is removed stands before what is added, for the second may need the first.
ChangeUnits::ChangeUnits(const Places &places) : places_(places), unit_at_(places.size(), kNoUnit) {
  find_removed_and_changed();
  find_added();
}

Shapes ChangeUnits::shapes(const ItemSet &units) const {
  Shapes shapes(places_.size(), Shape::commit);
  for (std::size_t unit = 0; unit < units_.size(); ++unit) {
    if (units[unit]) continue;
    const std::size_t begin = units_[unit];
    std::fill(shapes.begin() + static_cast<std::ptrdiff_t>(begin),
              shapes.begin() + static_cast<std::ptrdiff_t>(places_[begin].end), Shape::running);
  }
  return shapes;
}

void ChangeUnits::find_removed_and_changed() {
  for (std::size_t number = 0; number < places_.size();) {
    const Place &place = places_[number];
    const bool is_removed = is_unit_when_removed(place);
    if (is_removed || is_changed_leaf(place)) add_unit(number);
    number = is_removed ? place.end : number + 1;
  }
}

void ChangeUnits::find_added() {
  for (std::size_t number = 0; number < places_.size(); ++number) {
    const Place &place = places_[number];
    if (place.before != nullptr) continue;
    const bool comes_with_its_entry = place.is_leaf() && places_[places_.entry_of(number)].before == nullptr &&
                                      places_[places_.entry_of(number)].is_entry();
    if (place.is_entry() || (place.is_leaf() && !comes_with_its_entry)) add_unit(number);
  }
}

void ChangeUnits::add_unit(std::size_t number) {
  unit_at_[number] = units_.size();
  units_.push_back(number);
  items_.push_back({needs_of(number), kind_of(places_[number])});
}

std::vector<std::size_t> ChangeUnits::needs_of(std::size_t number) const {
  std::vector<std::size_t> needed;
  if (places_[number].before != nullptr) return needed;
  for (std::size_t inner = number;; inner = places_[inner].parent) {
    add_excluded(inner, needed);
    const std::size_t outer = places_[inner].parent;
    if (outer == inner) break;
    if (places_[outer].before != nullptr) break;
    if (places_[outer].is_entry()) {
      needed.push_back(unit_at_[outer]);
      break;
    }
  }
  return needed;
}

void ChangeUnits::add_excluded(std::size_t number, std::vector<std::size_t> &needed) const {
  const Place &place = places_[number];
  if (place.schema->choice == 0 || place.parent == number) return;
  for (std::size_t other = place.parent + 1; other < places_[place.parent].end; other = places_[other].end) {
    const element::SchemaNode &schema = *places_[other].schema;
    if (schema.choice != place.schema->choice || schema.choice_case == place.schema->choice_case) continue;
    for (std::size_t inner = other; inner < places_[other].end; ++inner) {
      if (places_[inner].before != nullptr && unit_at_[inner] != kNoUnit) needed.push_back(unit_at_[inner]);
    }
  }
}

}  // namespace diagnosis
