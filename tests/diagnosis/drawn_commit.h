#ifndef TESTS_DIAGNOSIS_DRAWN_COMMIT_H
#define TESTS_DIAGNOSIS_DRAWN_COMMIT_H

#include <cstdint>

#include "tests/diagnosis/merged_entries.h"
#include "tests/diagnosis/small_network.h"

namespace drawn {

struct Commit {
  Network running;
  Network candidate;

  brute_force::Configurations configurations() const;
};

/// A commit of at most so many entries, drawn from a seed: things come, go, change, move and are renamed, on few ports
/// and VLANs, so that most commits have faults.
Commit draw_commit(std::uint32_t seed, std::size_t most_entries);

}  // namespace drawn

#endif
