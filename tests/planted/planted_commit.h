#ifndef TESTS_PLANTED_PLANTED_COMMIT_H
#define TESTS_PLANTED_PLANTED_COMMIT_H

#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

#include "element/datastore/transaction.h"
#include "tests/planted/plant.h"

namespace planted {

/// A commit with faults of different kinds in it.
struct PlantedCommit {
  std::vector<Planted> faults;
  std::unique_ptr<element::Transaction> transaction;
};

/// With a fault of this rule and one to four others, as the seed draws them.
PlantedCommit draw_commit(std::string_view rule, std::uint32_t seed);

}  // namespace planted

#endif
