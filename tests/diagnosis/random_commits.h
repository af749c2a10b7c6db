#ifndef TESTS_DIAGNOSIS_RANDOM_COMMITS_H
#define TESTS_DIAGNOSIS_RANDOM_COMMITS_H

#include <cstdint>
#include <functional>
#include <string>

#include "diagnosis/diagnose.h"
#include "tests/diagnosis/merged_entries.h"

/// Calls the test with random commits of at most twelve entries, until one fails; a failure prints seed and commit.
/// DIAGNOSIS_SEED=N in the environment begins with that seed, DIAGNOSIS_COMMITS=N draws so many.
void for_each_commit(std::uint32_t commits, const std::function<void(const brute_force::Configurations &)> &test);

/// Both configurations, line by line.
std::string text_of(const brute_force::Configurations &commit);

/// A budget that no search of the tests uses up.
diagnosis::Budget ample();

diagnosis::Diagnosis diagnose(const brute_force::Configurations &commit);

#endif
