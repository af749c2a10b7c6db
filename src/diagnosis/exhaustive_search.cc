#include "diagnosis/exhaustive_search.h"

#include <algorithm>
#include <bit>

namespace diagnosis {
namespace {

using Mask = std::uint32_t;

/// For each entry of the universe the place of the one next around it, or kNone.
std::vector<std::uint32_t> places_around(const Entries &entries, const NumberSet &universe) {
  std::vector<std::uint32_t> places;
  for (const std::uint32_t entry : universe) {
    std::uint32_t around = entries[entry].parent;
    while (around != kNone && !contains(universe, around)) around = entries[around].parent;
    const auto place = std::lower_bound(universe.begin(), universe.end(), around);
    places.push_back(around == kNone ? kNone : static_cast<std::uint32_t>(place - universe.begin()));
  }
  return places;
}

std::vector<Mask> closed_masks(const Entries &entries, const NumberSet &universe) {
  const std::vector<std::uint32_t> around = places_around(entries, universe);
  std::vector<Mask> masks{0};
  for (std::uint32_t place = 0; place < universe.size(); ++place) {
    const Mask needed = around[place] == kNone ? 0 : Mask{1} << around[place];
    const std::size_t before = masks.size();
    for (std::size_t i = 0; i < before; ++i) {
      if ((masks[i] & needed) == needed) masks.push_back(masks[i] | Mask{1} << place);
    }
  }
  std::stable_sort(masks.begin(), masks.end(), [](Mask a, Mask b) { return std::popcount(a) < std::popcount(b); });
  return masks;
}

NumberSet set_of(const NumberSet &universe, Mask mask) {
  NumberSet set;
  for (; mask != 0; mask &= mask - 1) set.push_back(universe[static_cast<std::size_t>(std::countr_zero(mask))]);
  return set;
}

struct Minimal {
  Mask set = 0;
  std::uint32_t message = 0;
};

bool is_above_known(const std::vector<Minimal> &known, Mask set, std::uint32_t message) {
  return std::any_of(known.begin(), known.end(), [&](const Minimal &minimal) {
    return minimal.message == message && (set & minimal.set) == minimal.set;
  });
}

}  // namespace

std::vector<NumberSet> closed_sets(const Entries &entries, const NumberSet &universe) {
  std::vector<NumberSet> sets;
  for (const Mask mask : closed_masks(entries, universe)) sets.push_back(set_of(universe, mask));
  return sets;
}

std::uint64_t count_closed_sets(const Entries &entries, const NumberSet &universe, std::uint64_t most) {
  const std::vector<std::uint32_t> around = places_around(entries, universe);
  std::vector<std::uint64_t> sets(universe.size(), 1);  // that hold the entry, of it and what stands in it
  std::uint64_t all = 1;
  for (std::size_t place = universe.size(); place-- > 0;) {
    std::uint64_t &outer = around[place] == kNone ? all : sets[around[place]];
    outer = std::min(most, outer * (sets[place] + 1));
  }
  return all;
}

FoundConflicts find_all_by_enumeration(const SearchContext &context, const NumberSet &universe, bool is_start) {
  std::vector<Minimal> minimal;
  for (const Mask mask : closed_masks(context.entries, universe)) {
    if (mask == 0) continue;
    const std::optional<NumberSet> answer = context.oracle.ask({set_of(universe, mask), {}, is_start});
    if (!answer) break;
    for (const std::uint32_t message : *answer) {
      if (!is_above_known(minimal, mask, message)) minimal.push_back({mask, message});
    }
  }
  FoundConflicts conflicts;
  for (const Minimal &one : minimal) {
    FoundConflict conflict;
    conflict.entries = set_of(universe, one.set);
    conflict.message = one.message;
    conflict.parties = context.entries.innermost(conflict.entries);
    conflicts.push_back(std::move(conflict));
  }
  return conflicts;
}

}  // namespace diagnosis
