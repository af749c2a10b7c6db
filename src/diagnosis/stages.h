#ifndef DIAGNOSIS_STAGES_H
#define DIAGNOSIS_STAGES_H

#include <cstdint>
#include <vector>

#include "diagnosis/entries.h"
#include "diagnosis/revertible_changes.h"
#include "element/datastore/tree.h"

namespace diagnosis {

/// What an interim configuration has of a part of the change, in the order in which steps may pass through.
enum class PartState : std::uint8_t {
  before,  ///< as in the running configuration
  absent,  ///< neither: what changes in place is taken away, to be added anew
  after    ///< as in the candidate
};

/// A configuration between the running one and the candidate: a state for each part of the change.
using Stage = std::vector<PartState>;

/// The stages of a change, as trees.
class Stages {
 public:
  /// The entries and changes must outlive the stages.
  Stages(const Entries &entries, const RevertibleChanges &changes);

  Stage first() const { return Stage(changes_.size(), PartState::before); }
  Stage last() const { return Stage(changes_.size(), PartState::after); }

  /// The part changes in place, and the configuration can do without it.
  bool can_be_absent(std::uint32_t part) const;

  /// Each part in the state for what the commit does with it; parts that cannot be absent stay as before.
  Stage by_status(PartState added, PartState changed, PartState removed) const;

  /// Has what is added in an entry wait for the entry.
  void close(Stage &stage) const;

  /// The operator's nodes, sorted. The stage is closed.
  element::Tree tree(const Stage &stage) const;

 private:
  const Entries &entries_;
  const RevertibleChanges &changes_;
};

/// No part goes back from one stage to the other, and they differ.
bool is_step(const Stage &from, const Stage &to);

}  // namespace diagnosis

#endif
