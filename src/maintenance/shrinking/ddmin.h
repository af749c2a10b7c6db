#ifndef MAINTENANCE_SHRINKING_DDMIN_H
#define MAINTENANCE_SHRINKING_DDMIN_H

#include <algorithm>
#include <cstddef>
#include <set>
#include <utility>
#include <vector>

namespace maintenance {

/// The delta debugging algorithm (ddmin, Zeller and Hildebrandt 2002): a part of the items, in their order, for which
/// `holds`, and of which no single item can be left out. The same part is not asked about twice between two successes.
/// Precondition: `holds` for all of them.
template <typename Item, typename Holds>
std::vector<Item> ddmin(std::vector<Item> items, const Holds &holds) {
  if (items.empty() || holds(std::vector<Item>())) return {};
  std::size_t parts = 2;
  std::set<std::pair<std::ptrdiff_t, std::ptrdiff_t>> needed;  // ranges of the items that cannot be left out
  while (items.size() > 1) {
    parts = std::min(parts, items.size());
    bool is_smaller = false;
    for (std::size_t part = 0; part < parts && !is_smaller; ++part) {
      const auto begin = static_cast<std::ptrdiff_t>(items.size() * part / parts);
      const auto end = static_cast<std::ptrdiff_t>(items.size() * (part + 1) / parts);
      if (!needed.emplace(begin, end).second) continue;
      std::vector<Item> without(items.begin(), items.begin() + begin);
      without.insert(without.end(), items.begin() + end, items.end());
      if (!holds(without)) continue;
      items = std::move(without);
      needed.clear();
      is_smaller = true;
    }
    if (is_smaller) {
      parts = std::max<std::size_t>(parts - 1, 2);
    } else if (parts == items.size()) {
      return items;
    } else {
      parts *= 2;
    }
  }
  return items;
}

}  // namespace maintenance

#endif
