#include "element/datastore/transaction.h"

#include <fmt/format.h>

#include <utility>

#include "element/input/input_error.h"
#include "element/projection/projection.h"

namespace element {
namespace {

void project_named(const char *name, Tree &tree, const Profile &profile, Identifiers &identifiers) {
  try {
    project(tree, profile, identifiers);
  } catch (const InputError &error) {
    throw InputError(fmt::format("{} configuration: {}", name, error.what()));
  }
}

}  // namespace

Transaction::Transaction(Tree running_tree, Tree candidate_tree)
    : running(std::move(running_tree)), candidate(std::move(candidate_tree)), changes(difference(running, candidate)) {}

std::unique_ptr<Transaction> make_transaction(Tree running, Tree candidate, const Profile &profile) {
  Identifiers identifiers;
  project_named("running", running, profile, identifiers);
  project_named("candidate", candidate, profile, identifiers);
  return std::make_unique<Transaction>(std::move(running), std::move(candidate));
}

}  // namespace element
