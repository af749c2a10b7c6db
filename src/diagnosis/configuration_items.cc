#include "diagnosis/configuration_items.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace diagnosis {
namespace {

constexpr std::size_t kNoItem = std::numeric_limits<std::size_t>::max();

bool can_be_left_out(const Place &place) { return place.is_entry() || (place.is_leaf() && !place.schema->mandatory); }

}  // namespace

ConfigurationItems::ConfigurationItems(const Places &places, Shapes shapes)
    : places_(places), shapes_(std::move(shapes)) {
  std::vector<std::size_t> item_at(places.size(), kNoItem);
  for (std::size_t number = 0; number < places.size();) {
    const Place &place = places[number];
    if (!place.is_there(shapes_[number])) {
      number = place.end;
      continue;
    }
    if (can_be_left_out(place)) {
      item_at[number] = items_.size();
      item_places_.push_back(number);
      const std::size_t entry = place.parent == number ? number : places.entry_of(place.parent);
      const bool is_in_entry = entry != number && item_at[entry] != kNoItem;
      items_.push_back(
          {is_in_entry ? std::vector<std::size_t>{item_at[entry]} : std::vector<std::size_t>{}, kind_of(place)});
    }
    ++number;
  }
}

Shapes ConfigurationItems::shapes(const ItemSet &items) const {
  Shapes shapes = shapes_;
  for (std::size_t item = 0; item < items_.size(); ++item) {
    if (items[item]) continue;
    const std::size_t begin = item_places_[item];
    std::fill(shapes.begin() + static_cast<std::ptrdiff_t>(begin),
              shapes.begin() + static_cast<std::ptrdiff_t>(places_[begin].end), Shape::dropped);
  }
  return shapes;
}

}  // namespace diagnosis
