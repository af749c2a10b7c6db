#include "diagnosis/exhaustive_search.h"

#include <algorithm>
#include <bit>

namespace diagnosis {
namespace {

using Mask = std::uint32_t;

std::vector<Mask> closed_sets(const Entries &entries) {
  std::vector<Mask> sets{0};
  for (std::uint32_t entry = 0; entry < entries.size(); ++entry) {
    const std::uint32_t around = entries[entry].parent;
    const Mask needed = around == kNone ? 0 : Mask{1} << around;
    const std::size_t before = sets.size();
    for (std::size_t i = 0; i < before; ++i) {
      if ((sets[i] & needed) == needed) sets.push_back(sets[i] | Mask{1} << entry);
    }
  }
  std::stable_sort(sets.begin(), sets.end(), [](Mask a, Mask b) { return std::popcount(a) < std::popcount(b); });
  return sets;
}

NumberSet set_of(Mask mask) {
  NumberSet set;
  for (; mask != 0; mask &= mask - 1) set.push_back(static_cast<std::uint32_t>(std::countr_zero(mask)));
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

std::uint64_t count_closed_sets(const Entries &entries, std::uint64_t most) {
  std::vector<std::uint64_t> sets(entries.size(), 1);  // that hold the entry, of it and what stands in it
  std::uint64_t all = 1;
  for (std::uint32_t entry = entries.size(); entry-- > 0;) {
    const std::uint32_t around = entries[entry].parent;
    std::uint64_t &outer = around == kNone ? all : sets[around];
    outer = std::min(most, outer * (sets[entry] + 1));
  }
  return all;
}

FoundConflicts find_all_by_enumeration(const SearchContext &context) {
  std::vector<Minimal> minimal;
  for (const Mask mask : closed_sets(context.entries)) {
    if (mask == 0) continue;
    const std::optional<NumberSet> answer = context.oracle.ask({set_of(mask), {}});
    if (!answer) break;
    for (const std::uint32_t message : *answer) {
      if (!is_above_known(minimal, mask, message)) minimal.push_back({mask, message});
    }
  }
  FoundConflicts conflicts;
  for (const Minimal &one : minimal) {
    NumberSet set = set_of(one.set);
    NumberSet parties = context.entries.innermost(set);
    conflicts.push_back({std::move(set), one.message, std::move(parties), {}, 1, false, true});
  }
  return conflicts;
}

}  // namespace diagnosis
