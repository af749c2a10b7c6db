#ifndef TESTS_FUZZ_DRAWN_COMMIT_H
#define TESTS_FUZZ_DRAWN_COMMIT_H

#include <cstddef>
#include <cstdint>
#include <string>

#include "element/datastore/path.h"
#include "element/datastore/tree.h"
#include "element/profile/profile.h"
#include "host/seam/host_session.h"

namespace fuzz {

/// A commit under validation, as a host that is in any state may ask about it.
struct DrawnCommit {
  explicit DrawnCommit(const element::Schema &schema) : running(schema), candidate(schema) {}

  element::Profile profile;
  host::InjectedFailure failure;
  std::string point;
  element::Path path;    ///< of the node under validation
  element::Value value;  ///< its new value
  element::Tree running;
  element::Tree candidate;
};

/// Draws a commit from bytes: what the applications keep and what the operator wrote, neither derived from the other,
/// in entries with few different keys, so that they meet. Some values are of a type that their leafs do not have; such
/// a value owns no memory, for a library that ends on it frees none. The same bytes draw the same commit.
DrawnCommit draw_commit(const element::Schema &schema, const std::uint8_t *data, std::size_t size);

}  // namespace fuzz

#endif
