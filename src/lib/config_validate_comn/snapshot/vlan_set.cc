#include <algorithm>
#include <iterator>

#include "config_validate_comn/snapshot/access_index.h"

void vlan_set_t::add(st_acc_dot1q_range_t range) {
  if (is_without_vlan(range) || range.vlan_min > range.vlan_max) return;

  auto next = ranges_.upper_bound(range.vlan_min);
  if (next != ranges_.begin() && std::prev(next)->second >= range.vlan_min) --next;
  while (next != ranges_.end() && next->first <= range.vlan_max) {
    range.vlan_min = std::min(range.vlan_min, next->first);
    range.vlan_max = std::max(range.vlan_max, next->second);
    next = ranges_.erase(next);
  }
  ranges_.emplace_hint(next, range.vlan_min, range.vlan_max);
}

bool vlan_set_t::meets(const st_acc_dot1q_range_t &range) const {
  const auto after = ranges_.upper_bound(range.vlan_max);
  return after != ranges_.begin() && std::prev(after)->second >= range.vlan_min;
}
