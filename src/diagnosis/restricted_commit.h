#ifndef DIAGNOSIS_RESTRICTED_COMMIT_H
#define DIAGNOSIS_RESTRICTED_COMMIT_H

#include <memory>

#include "diagnosis/entries.h"
#include "diagnosis/revertible_changes.h"

namespace diagnosis {

/// What a restricted commit makes of a node.
enum class NodeState {
  omitted,   ///< in neither configuration
  reverted,  ///< in both as in the running configuration: its change is taken back
  applied    ///< as in the whole commit
};

/// The commit restricted to a closed set of entries, with some closed set of its parts taken back.
struct RestrictedCommit {
  NumberSet entries;
  NumberSet reverted;
  bool is_start = false;  ///< the running configuration is committed to an empty element instead

  bool operator==(const RestrictedCommit &) const = default;
};

/// The restricted commit with its derived tables; the projector keeps those of the whole commit's VPNs.
std::unique_ptr<element::Transaction> make_transaction(const RestrictedCommit &commit, const Entries &entries,
                                                       const RevertibleChanges &changes, element::Projector &projector);

/// One of its configurations, operator's nodes alone.
element::Tree running_tree(const RestrictedCommit &commit, const Entries &entries, const RevertibleChanges &changes);
element::Tree candidate_tree(const RestrictedCommit &commit, const Entries &entries, const RevertibleChanges &changes);

}  // namespace diagnosis

#endif
