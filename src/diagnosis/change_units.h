#ifndef DIAGNOSIS_CHANGE_UNITS_H
#define DIAGNOSIS_CHANGE_UNITS_H

#include <cstddef>
#include <vector>

#include "diagnosis/places.h"
#include "diagnosis/reduction.h"

namespace diagnosis {

/// The change of a commit, cut into the parts that can be taken back one by one: a list entry that is added, with its
/// leafs, for half an attachment would be a change that nobody made; a list entry that is removed, with all it held; a
/// leaf of what stays.
class ChangeUnits {
 public:
  /// The places must outlive the units.
  explicit ChangeUnits(const Places &places);

  std::size_t size() const { return units_.size(); }

  /// The place that stands for the unit. Units are not in the order of their places.
  std::size_t place(std::size_t unit) const { return units_[unit]; }

  /// An added entry needs the added entry that it stands in; a node that excludes others needs their removal.
  const Items &items() const { return items_; }

  /// The commit with these units alone.
  Shapes shapes(const ItemSet &units) const;

 private:
  void find_removed_and_changed();
  void find_added();
  void add_unit(std::size_t number);
  std::vector<std::size_t> needs_of(std::size_t number) const;
  void add_excluded(std::size_t number, std::vector<std::size_t> &needed) const;

  const Places &places_;
  std::vector<std::size_t> units_;
  std::vector<std::size_t> unit_at_;  ///< by place; kNoUnit where no unit is
  Items items_;
};

}  // namespace diagnosis

#endif
