#ifndef DIAGNOSIS_ENTRIES_H
#define DIAGNOSIS_ENTRIES_H

#include <cstdint>
#include <vector>

#include "diagnosis/merged_tree.h"

namespace diagnosis {

/// Ascending numbers: of entries, or of parts of the change.
using NumberSet = std::vector<std::uint32_t>;

/// A list entry that stands for a thing: a group, a VPN, an attachment, a neighbour, a static member, an uplink ...
struct Entry {
  std::uint32_t node = 0;
  std::uint32_t parent = kNone;  ///< the entry around it, which it cannot be without
  std::uint32_t end = 0;         ///< the first entry behind all that stand in it
};

/// The things of a commit in schema order, entries before those that stand in them. A set is closed when it holds the
/// entry around each of its own.
class Entries {
 public:
  /// Numbers the tree's things and tells each node its thing. The tree must outlive the entries.
  explicit Entries(MergedTree &tree);

  std::uint32_t size() const { return static_cast<std::uint32_t>(entries_.size()); }
  const Entry &operator[](std::uint32_t number) const { return entries_[number]; }
  const MergedTree &tree() const { return tree_; }
  const MergedNode &node(std::uint32_t entry) const { return tree_[entries_[entry].node]; }

  NumberSet all() const;

  /// The set with the entries around its own.
  NumberSet closure(const NumberSet &set) const;

  /// The entries of a closed set that hold no other of it.
  NumberSet innermost(const NumberSet &set) const;

  /// The set without `gone` and all that stands in it.
  NumberSet without(const NumberSet &set, const NumberSet &gone) const;

  /// Entry is the other one or stands around it.
  bool is_around(std::uint32_t entry, std::uint32_t inner) const {
    return entry <= inner && inner < entries_[entry].end;
  }

 private:
  MergedTree &tree_;
  std::vector<Entry> entries_;
};

NumberSet united(const NumberSet &a, const NumberSet &b);
NumberSet minus(const NumberSet &a, const NumberSet &b);
NumberSet intersection(const NumberSet &a, const NumberSet &b);
bool contains(const NumberSet &set, std::uint32_t number);
bool is_subset(const NumberSet &part, const NumberSet &whole);

/// Sorts, and drops what stands there twice.
void normalise(NumberSet &set);

}  // namespace diagnosis

#endif
