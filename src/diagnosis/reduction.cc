#include "diagnosis/reduction.h"

#include <algorithm>
#include <map>
#include <optional>

namespace diagnosis {
namespace {

using Numbers = std::vector<std::size_t>;

bool lacks_nothing(const Items &items, const ItemSet &set) { return with_needs(items, set) == set; }

class Reduction {
 public:
  Reduction(const Items &items, ItemSet start, const std::function<bool(const ItemSet &)> &holds,
            const ReductionOptions &options)
      : items_(items), options_(options), holds_(holds), set_(std::move(start)) {
    for (std::size_t i = 0; i < items.size(); ++i) place_on_level(i);
  }

  ItemSet run() {
    const ItemSet start = set_;
    std::size_t before = 0;
    do {
      before = count(set_);
      for (const Numbers &level : levels_) reduce_level(level);
    } while (count(set_) < before);
    // Two items may be there for each other alone: neither can be left out without the other.
    if (count(set_) <= options_.exhaustive_below) try_smaller_sets(ItemSet(set_));
    if (count(start) <= options_.exhaustive_below) try_smaller_sets(start);
    return set_;
  }

 private:
  void place_on_level(std::size_t item) {
    std::size_t level = 0;
    for (const std::size_t needed : items_[item].needs) level = std::max(level, level_of_[needed] + 1);
    level_of_.push_back(level);
    if (level == levels_.size()) levels_.emplace_back();
    levels_[level].push_back(item);
  }

  Numbers left_of(const Numbers &level) const {
    Numbers left;
    std::copy_if(level.begin(), level.end(), std::back_inserter(left), [this](std::size_t item) { return set_[item]; });
    return left;
  }

  void reduce_level(const Numbers &level) {
    drop_kinds(left_of(level));
    std::size_t chunk = left_of(level).size();
    if (chunk == 0) return;
    const std::size_t finest = options_.finest_share == 0 ? 1 : std::max<std::size_t>(1, chunk / options_.finest_share);
    while (true) {
      drop_chunks(left_of(level), chunk);
      if (chunk <= finest) return;
      chunk = std::max(finest, (chunk + 1) / 2);
    }
  }

  void drop_kinds(const Numbers &level) {
    std::map<std::size_t, ItemSet> kinds;
    for (const std::size_t item : level) {
      kinds.try_emplace(items_[item].kind, set_.size(), false).first->second[item] = true;
    }
    for (auto &[kind, gone] : kinds) drop(std::move(gone));
  }

  void drop_chunks(const Numbers &level, std::size_t chunk) {
    for (std::size_t first = 0; first < level.size(); first += chunk) {
      ItemSet gone(set_.size(), false);
      for (std::size_t i = first; i < std::min(first + chunk, level.size()); ++i) gone[level[i]] = true;
      drop(std::move(gone));
    }
  }

  void drop(ItemSet gone) {
    ItemSet rest = without(set_, with_dependents(items_, std::move(gone)));
    if (rest != set_ && holds(rest)) set_ = std::move(rest);
  }

  bool holds(const ItemSet &set) {
    const auto known = answers_.find(set);
    if (known != answers_.end()) return known->second;
    return answers_.emplace(set, holds_(set)).first->second;
  }

  void try_smaller_sets(const ItemSet &start) {
    Numbers candidates;
    for (std::size_t i = 0; i < start.size(); ++i) {
      if (start[i]) candidates.push_back(i);
    }
    const std::size_t found = count(set_);
    for (std::size_t size = 0; size < found; ++size) {
      if (try_sets_of(candidates, size)) return;
    }
  }

  bool try_sets_of(const Numbers &candidates, std::size_t size) {
    std::vector<bool> chosen(candidates.size(), false);
    std::fill_n(chosen.begin(), size, true);
    do {
      ItemSet set(set_.size(), false);
      for (std::size_t i = 0; i < candidates.size(); ++i) set[candidates[i]] = chosen[i];
      if (lacks_nothing(items_, set) && holds(set)) {
        set_ = std::move(set);
        return true;
      }
    } while (std::prev_permutation(chosen.begin(), chosen.end()));
    return false;
  }

  const Items &items_;
  const ReductionOptions options_;
  const std::function<bool(const ItemSet &)> &holds_;
  ItemSet set_;
  std::vector<std::size_t> level_of_;
  std::vector<Numbers> levels_;
  std::map<ItemSet, bool> answers_;
};

}  // namespace

ItemSet reduce(const Items &items, ItemSet start, const std::function<bool(const ItemSet &)> &holds,
               const ReductionOptions &options) {
  return Reduction(items, std::move(start), holds, options).run();
}

ItemSet with_dependents(const Items &items, ItemSet set) {
  for (std::size_t i = 0; i < set.size(); ++i) {
    const auto is_in = [&set](std::size_t needed) { return set[needed]; };
    if (!set[i]) set[i] = std::any_of(items[i].needs.begin(), items[i].needs.end(), is_in);
  }
  return set;
}

ItemSet with_needs(const Items &items, ItemSet set) {
  for (std::size_t i = set.size(); i-- > 0;) {
    if (!set[i]) continue;
    for (const std::size_t needed : items[i].needs) set[needed] = true;
  }
  return set;
}

ItemSet outermost(const Items &items, const ItemSet &set) {
  ItemSet result = set;
  for (std::size_t i = 0; i < set.size(); ++i) {
    if (!set[i]) continue;
    for (const std::size_t needed : items[i].needs) result[needed] = false;
  }
  return result;
}

ItemSet without(ItemSet set, const ItemSet &gone) {
  for (std::size_t i = 0; i < set.size(); ++i) {
    if (gone[i]) set[i] = false;
  }
  return set;
}

ItemSet both(ItemSet one, const ItemSet &other) {
  for (std::size_t i = 0; i < one.size(); ++i) one[i] = one[i] && other[i];
  return one;
}

ItemSet either(ItemSet one, const ItemSet &other) {
  for (std::size_t i = 0; i < one.size(); ++i) one[i] = one[i] || other[i];
  return one;
}

std::size_t count(const ItemSet &set) { return static_cast<std::size_t>(std::count(set.begin(), set.end(), true)); }

}  // namespace diagnosis
