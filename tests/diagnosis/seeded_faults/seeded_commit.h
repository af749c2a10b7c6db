#ifndef TESTS_DIAGNOSIS_SEEDED_FAULTS_SEEDED_COMMIT_H
#define TESTS_DIAGNOSIS_SEEDED_FAULTS_SEEDED_COMMIT_H

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "tests/diagnosis/merged_entries.h"
#include "tests/diagnosis/seeded_faults/seeded_fault.h"

namespace seeded {

/// A commit with faults of different kinds in it.
struct SeededCommit {
  std::vector<SeededFault> faults;
  brute_force::Configurations configurations;
};

/// With a fault of this rule and one to four others, as the seed draws them, beside at least so many VPNs that have
/// none.
SeededCommit draw_commit(std::string_view rule, std::uint32_t seed, std::size_t clean_vpns = 0);

}  // namespace seeded

#endif
