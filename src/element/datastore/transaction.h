#ifndef ELEMENT_DATASTORE_TRANSACTION_H
#define ELEMENT_DATASTORE_TRANSACTION_H

#include <memory>

#include "element/datastore/difference.h"
#include "element/datastore/tree.h"
#include "element/profile/profile.h"
#include "element/projection/projection.h"

namespace element {

/// A commit under validation: the running configuration, the candidate and their difference, all with derived tables.
/// It cannot be moved, because the changes point into the trees.
struct Transaction {
  Transaction(Tree running_tree, Tree candidate_tree);
  Transaction(const Transaction &) = delete;
  Transaction &operator=(const Transaction &) = delete;

  const Tree running;
  const Tree candidate;
  const Change changes;
};

/// Adds the derived tables to two operator's configurations, then compares them. Throws InputError for an interface of
/// a VLAN member or of snooping that the profile does not have.
std::unique_ptr<Transaction> make_transaction(Tree running, Tree candidate, const Profile &profile);

/// As above, for one of many commits to the same element: a VPN has the same identifier in all transactions that are
/// made with one projector. Precondition: both trees are sorted. Subtrees that the trees share are not compared, and
/// VPNs that the projector keeps are not derived again.
std::unique_ptr<Transaction> make_transaction(Tree running, Tree candidate, Projector &projector);

}  // namespace element

#endif
