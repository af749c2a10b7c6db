#include "headroom/limit_probe.h"

#include <limits>

namespace headroom {

element::CardLimits card_without_encapsulation_limits(const element::CardLimits &card) {
  // The library compares signed numbers.
  constexpr auto largest = std::numeric_limits<std::int32_t>::max();
  element::CardLimits unlimited = card;
  unlimited.selective_encapsulation_vlan_entries = largest;
  unlimited.selective_encapsulation_vlan_ranges = largest;
  return unlimited;
}

}  // namespace headroom
