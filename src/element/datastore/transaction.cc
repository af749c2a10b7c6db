#include "element/datastore/transaction.h"

#include <utility>

#include "element/projection/projection.h"
#include "element/projection/unknown_interface.h"

namespace element {
namespace {

void project_named(const char *name, Tree &tree, Projector &projector) {
  try {
    projector.project(tree);
  } catch (const UnknownInterface &error) {
    throw UnknownInterface(error.path(), error.fault(), name);
  }
}

}  // namespace

Transaction::Transaction(Tree running_tree, Tree candidate_tree)
    : running(std::move(running_tree)), candidate(std::move(candidate_tree)), changes(difference(running, candidate)) {}

std::unique_ptr<Transaction> make_transaction(Tree running, Tree candidate, const Profile &profile) {
  running.sort();
  candidate.sort();
  share_equal_subtrees(candidate, running);
  Projector projector(profile);
  projector.keep(running, candidate);
  return make_transaction(std::move(running), std::move(candidate), projector);
}

std::unique_ptr<Transaction> make_transaction(Tree running, Tree candidate, Projector &projector) {
  project_named("running", running, projector);
  project_named("candidate", candidate, projector);
  return std::make_unique<Transaction>(std::move(running), std::move(candidate));
}

}  // namespace element
