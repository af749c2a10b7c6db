#ifndef DIAGNOSIS_CONFIGURATION_ITEMS_H
#define DIAGNOSIS_CONFIGURATION_ITEMS_H

#include <cstddef>
#include <vector>

#include "diagnosis/places.h"
#include "diagnosis/reduction.h"

namespace diagnosis {

/// What can be left out of the running and the candidate configuration of a commit, in both at once: list entries with
/// all they hold, and leafs that an entry can be without.
class ConfigurationItems {
 public:
  /// The items of a commit of this shape. The places must outlive them.
  ConfigurationItems(const Places &places, Shapes shapes);

  std::size_t size() const { return items_.size(); }

  /// An item needs the entry that it stands in.
  const Items &items() const { return items_; }

  /// The commit with these items alone.
  Shapes shapes(const ItemSet &items) const;

 private:
  const Places &places_;
  Shapes shapes_;
  std::vector<std::size_t> item_places_;
  Items items_;
};

}  // namespace diagnosis

#endif
