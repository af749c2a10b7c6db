#include "diagnosis/free_values.h"

#include <algorithm>
#include <array>
#include <bitset>
#include <cctype>
#include <limits>

namespace diagnosis {
namespace {

using l2vpn::VlanRange;

class FreeVlans {
 public:
  explicit FreeVlans(const std::vector<VlanRange> &taken) {
    for (const VlanRange &range : taken) take(range);
  }

  void take(const VlanRange &range) {
    for (std::uint32_t vlan = range.first; vlan <= std::min(range.last, l2vpn::kLastVlan); ++vlan) taken_.set(vlan);
  }

  bool is_free(std::uint32_t first, std::uint32_t last) const {
    if (first == 0 || last > l2vpn::kLastVlan) return false;
    for (std::uint32_t vlan = first; vlan <= last; ++vlan) {
      if (taken_.test(vlan)) return false;
    }
    return true;
  }

 private:
  std::bitset<l2vpn::kLastVlan + 1> taken_;
};

}  // namespace

std::vector<VlanRange> nearest_free_vlans(const VlanRange &wanted, const std::vector<VlanRange> &taken,
                                          std::size_t most) {
  FreeVlans vlans(taken);
  std::vector<VlanRange> found;
  const auto try_at = [&](std::uint32_t first) {
    const VlanRange range{first, first + (wanted.last - wanted.first)};
    if (found.size() == most || !vlans.is_free(range.first, range.last)) return;
    found.push_back(range);
    vlans.take(range);
  };
  for (std::uint32_t distance = 0; distance <= l2vpn::kLastVlan && found.size() < most; ++distance) {
    try_at(wanted.first + distance);
    if (distance != 0 && distance < wanted.first) try_at(wanted.first - distance);
  }
  return found;
}

std::vector<std::uint32_t> nearest_free_numbers(std::uint32_t wanted, const std::set<std::uint32_t> &taken,
                                                std::size_t most) {
  std::vector<std::uint32_t> found;
  const auto try_number = [&](std::uint32_t number) {
    if (found.size() < most && taken.count(number) == 0) found.push_back(number);
  };
  // So many numbers on one side cannot all be taken.
  for (std::uint32_t distance = 1; distance <= taken.size() + most && found.size() < most; ++distance) {
    if (distance <= std::numeric_limits<std::uint32_t>::max() - wanted) try_number(wanted + distance);
    if (distance < wanted) try_number(wanted - distance);
  }
  return found;
}

}  // namespace diagnosis
