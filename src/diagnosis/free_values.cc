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

bool is_same_letter(char a, char b) {
  return std::tolower(static_cast<unsigned char>(a)) == std::tolower(static_cast<unsigned char>(b));
}

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

std::size_t spelling_distance(const std::string &a, const std::string &b) {
  // Three rows of the table of distances between beginnings of `a` and of `b`.
  std::array<std::vector<std::size_t>, 3> rows;
  rows.fill(std::vector<std::size_t>(b.size() + 1));
  for (std::size_t j = 0; j <= b.size(); ++j) rows[0][j] = j;
  for (std::size_t i = 1; i <= a.size(); ++i) {
    std::vector<std::size_t> &row = rows[i % 3];
    const std::vector<std::size_t> &above = rows[(i - 1) % 3];
    row[0] = i;
    for (std::size_t j = 1; j <= b.size(); ++j) {
      const bool is_same = is_same_letter(a[i - 1], b[j - 1]);
      row[j] = std::min({above[j] + 1, row[j - 1] + 1, above[j - 1] + (is_same ? 0 : 1)});
      const bool is_swapped =
          i > 1 && j > 1 && is_same_letter(a[i - 1], b[j - 2]) && is_same_letter(a[i - 2], b[j - 1]);
      if (is_swapped) row[j] = std::min(row[j], rows[(i - 2) % 3][j - 2] + 1);
    }
  }
  return rows[a.size() % 3][b.size()];
}

std::vector<std::string> nearest_interfaces(const std::string &name, const element::Profile &profile,
                                            std::size_t most) {
  std::size_t nearest = 1 + name.size() / 8;
  std::vector<std::string> found;
  for (const element::Interface &interface : profile.interfaces()) {
    const std::size_t longer = std::max(name.size(), interface.name.size());
    if (longer - std::min(name.size(), interface.name.size()) > nearest) continue;
    const std::size_t distance = spelling_distance(name, interface.name);
    if (distance > nearest) continue;
    if (distance < nearest) found.clear();
    nearest = distance;
    if (found.size() < most) found.push_back(interface.name);
  }
  return found;
}

}  // namespace diagnosis
