#ifndef DIAGNOSIS_REDUCTION_H
#define DIAGNOSIS_REDUCTION_H

#include <cstddef>
#include <functional>
#include <vector>

namespace diagnosis {

/// Which of a row of items are in a set.
using ItemSet = std::vector<bool>;

/// What can be left out of a whole.
struct Item {
  std::vector<std::size_t> needs;  ///< the items that it cannot be without; each of them stands before it
  std::size_t kind = 0;            ///< items of one kind are likely to matter all or not at all
};

using Items = std::vector<Item>;

struct ReductionOptions {
  std::size_t finest_share =
      0;  ///< chunks are no smaller than one of so many equal parts of a level; 0: down to single items
  std::size_t exhaustive_below = 0;  ///< with at most so many items, every smaller set of them is tried in the end
};

/// The smallest set that it can find within `start` for which `holds` is true, by delta debugging level by level: what
/// needs nothing first, kind by kind, then in ever smaller chunks, each with all that cannot be without it. No single
/// item of the result can be left out (with its dependents) unless `finest_share` bounds the chunks, no set of them
/// where the result has at most `exhaustive_below` items, and nothing smaller holds at all where `start` has. `start`
/// must hold and lack nothing that its items need; every set that is asked about lacks nothing either. The same
/// question is never asked twice.
ItemSet reduce(const Items &items, ItemSet start, const std::function<bool(const ItemSet &)> &holds,
               const ReductionOptions &options = {});

/// The set with all that needs one of its items, directly or not.
ItemSet with_dependents(const Items &items, ItemSet set);

/// The set with all that its items need, directly or not.
ItemSet with_needs(const Items &items, ItemSet set);

/// The items of the set that no other of it needs.
ItemSet outermost(const Items &items, const ItemSet &set);

ItemSet without(ItemSet set, const ItemSet &gone);
ItemSet both(ItemSet one, const ItemSet &other);
ItemSet either(ItemSet one, const ItemSet &other);

std::size_t count(const ItemSet &set);

}  // namespace diagnosis

#endif
