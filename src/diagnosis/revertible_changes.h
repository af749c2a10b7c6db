#ifndef DIAGNOSIS_REVERTIBLE_CHANGES_H
#define DIAGNOSIS_REVERTIBLE_CHANGES_H

#include <cstdint>
#include <vector>

#include "diagnosis/entries.h"
#include "diagnosis/finding.h"

namespace diagnosis {

/// A part of the change that can be taken back by itself; see ChangePart.
struct RevertibleChange {
  ChangeStatus status = ChangeStatus::changed;
  std::uint32_t node = 0;        ///< of the entry, or of a VPN's leaf
  std::uint32_t parent = kNone;  ///< additions: the part that adds the entry around it, which it cannot be without
  std::uint32_t end = 0;         ///< additions: the first part behind those of the entries in it
};

/// The change of a commit, cut into parts, in schema order. A set of parts that is taken back is closed when it holds,
/// with an added entry, the entries that are added in it.
class RevertibleChanges {
 public:
  /// The entries must outlive the changes.
  explicit RevertibleChanges(const Entries &entries);

  std::uint32_t size() const { return static_cast<std::uint32_t>(parts_.size()); }
  const RevertibleChange &operator[](std::uint32_t part) const { return parts_[part]; }
  NumberSet all() const;

  /// The part that a node's change belongs to, kNone for a node that stays as it is.
  std::uint32_t part_of(std::uint32_t node) const { return part_of_[node]; }

  /// The parts that have to do with an entry: its own, and those of the leafs of the VPN that it belongs to.
  NumberSet parts_at(std::uint32_t entry) const;

  /// What the commit with a closed set of parts taken back does to an entry that is in one of its configurations; see
  /// the function below.
  ChangeStatus status_without(const NumberSet &taken_back, std::uint32_t entry) const;

  /// The entries that are in neither configuration once the parts are taken back, those in them not told.
  NumberSet gone_without(const NumberSet &taken_back) const;

  /// The set with the additions in its own.
  NumberSet closure(const NumberSet &set) const;

  /// The parts of a closed set that stand in no other of it.
  NumberSet outermost(const NumberSet &set) const;

 private:
  void add_subtree(std::uint32_t number, ChangeStatus status, std::uint32_t parent);
  void add_changes_in_place(std::uint32_t number);
  void walk(std::uint32_t begin, std::uint32_t end);

  const Entries &entries_;
  const MergedTree &tree_;
  std::vector<RevertibleChange> parts_;
  std::vector<std::uint32_t> part_of_;  ///< by node
};

/// What the commit does to the entry: also `changed` where a leaf or a range of its own changes.
ChangeStatus status_of(const Entries &entries, std::uint32_t entry);

/// What the commit does to the node itself.
ChangeStatus status_of(const MergedNode &node);

}  // namespace diagnosis

#endif
