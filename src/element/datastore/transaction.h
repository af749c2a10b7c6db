#ifndef ELEMENT_DATASTORE_TRANSACTION_H
#define ELEMENT_DATASTORE_TRANSACTION_H

#include <memory>

#include "element/datastore/difference.h"
#include "element/datastore/tree.h"
#include "element/profile/profile.h"
#include "element/projection/projection.h"

namespace element {

/// A commit under validation: the configuration in force, the one proposed, and what leads from one to the other.
/// Immovable, for the changes point into the trees.
struct Transaction {
  Transaction(Tree running_tree, Tree candidate_tree);
  Transaction(const Transaction &) = delete;
  Transaction &operator=(const Transaction &) = delete;

  const Tree running;
  const Tree candidate;
  const Change changes;
};

/// From two operator's configurations: derives both, then compares them.
std::unique_ptr<Transaction> make_transaction(Tree running, Tree candidate, const Profile &profile);

/// The same for one of many commits to one element, whose VPNs keep the identifiers that they had in those before. Both
/// trees must be sorted. What they share with each other, and VPNs that the projector keeps, cost next to nothing.
std::unique_ptr<Transaction> make_transaction(Tree running, Tree candidate, Projector &projector);

}  // namespace element

#endif
