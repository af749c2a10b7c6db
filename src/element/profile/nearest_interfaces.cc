#include "element/profile/nearest_interfaces.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cctype>

namespace element {
namespace {

bool is_same_letter(char a, char b) {
  return std::tolower(static_cast<unsigned char>(a)) == std::tolower(static_cast<unsigned char>(b));
}

}  // namespace

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

std::vector<std::string> nearest_interfaces(const std::string &name, const Profile &profile, std::size_t most) {
  std::size_t nearest = 1 + name.size() / 8;
  std::vector<std::string> found;
  for (const Interface &interface : profile.interfaces()) {
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

std::string not_in_profile(const std::vector<std::string> &nearest) {
  return nearest.empty() ? "not in the profile"
                         : fmt::format("not in the profile (near: {})", fmt::join(nearest, ", "));
}

}  // namespace element
