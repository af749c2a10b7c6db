#include "diagnosis/entries.h"

#include <algorithm>
#include <iterator>
#include <numeric>

namespace diagnosis {

Entries::Entries(MergedTree &tree) : tree_(tree) {
  for (std::uint32_t number = 0; number < tree.size(); ++number) {
    MergedNode &node = tree[number];
    const std::uint32_t around = node.parent == kNone ? kNone : tree[node.parent].entry;
    node.entry = around;
    if (!node.is_thing()) continue;
    node.entry = size();
    entries_.push_back({number, around, 0});
  }
  for (std::uint32_t number = tree.size(); number-- > 0;) {
    MergedNode &node = tree[number];
    if (node.is_thing()) {
      ++node.things;
      node.first_thing = node.entry;
    }
    if (node.parent == kNone || node.things == 0) continue;
    tree[node.parent].things += node.things;
    tree[node.parent].first_thing = node.first_thing;
  }
  for (std::uint32_t entry = size(); entry-- > 0;) {
    Entry &own = entries_[entry];
    own.end = std::max(own.end, entry + 1);
    if (own.parent != kNone) entries_[own.parent].end = std::max(entries_[own.parent].end, own.end);
  }
}

NumberSet Entries::all() const {
  NumberSet set(size());
  std::iota(set.begin(), set.end(), 0U);
  return set;
}

NumberSet Entries::closure(const NumberSet &set) const {
  NumberSet closed;
  for (const std::uint32_t entry : set) {
    for (std::uint32_t outer = entry; outer != kNone; outer = entries_[outer].parent) closed.push_back(outer);
  }
  normalise(closed);
  return closed;
}

NumberSet Entries::innermost(const NumberSet &set) const {
  NumberSet inner;
  for (std::size_t i = 0; i < set.size(); ++i) {
    const bool holds_next = i + 1 < set.size() && is_around(set[i], set[i + 1]);
    if (!holds_next) inner.push_back(set[i]);
  }
  return inner;
}

NumberSet Entries::without(const NumberSet &set, const NumberSet &gone) const {
  NumberSet left;
  auto next = gone.begin();
  std::uint32_t gone_end = 0;
  for (const std::uint32_t entry : set) {
    for (; next != gone.end() && *next <= entry; ++next) gone_end = std::max(gone_end, entries_[*next].end);
    if (entry >= gone_end) left.push_back(entry);
  }
  return left;
}

NumberSet united(const NumberSet &a, const NumberSet &b) {
  NumberSet result;
  result.reserve(a.size() + b.size());
  std::set_union(a.begin(), a.end(), b.begin(), b.end(), std::back_inserter(result));
  return result;
}

NumberSet minus(const NumberSet &a, const NumberSet &b) {
  NumberSet result;
  std::set_difference(a.begin(), a.end(), b.begin(), b.end(), std::back_inserter(result));
  return result;
}

NumberSet intersection(const NumberSet &a, const NumberSet &b) {
  NumberSet result;
  std::set_intersection(a.begin(), a.end(), b.begin(), b.end(), std::back_inserter(result));
  return result;
}

bool contains(const NumberSet &set, std::uint32_t number) { return std::binary_search(set.begin(), set.end(), number); }

bool is_subset(const NumberSet &part, const NumberSet &whole) {
  return std::includes(whole.begin(), whole.end(), part.begin(), part.end());
}

void normalise(NumberSet &set) {
  std::sort(set.begin(), set.end());
  set.erase(std::unique(set.begin(), set.end()), set.end());
}

}  // namespace diagnosis
