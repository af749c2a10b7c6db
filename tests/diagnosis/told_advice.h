#ifndef TESTS_DIAGNOSIS_TOLD_ADVICE_H
#define TESTS_DIAGNOSIS_TOLD_ADVICE_H

#include <set>
#include <string>
#include <vector>

#include "diagnosis/finding.h"
#include "tests/diagnosis/change_parts.h"

namespace brute_force {

/// What is taken back. A part of the commit is known by its path.
PartSet part_set(const std::vector<Part> &parts_of_commit, const std::vector<diagnosis::ChangePart> &told);

/// The alternatives of an advice as sets; of a limit every choice of enough parts.
std::set<PartSet> alternatives(const std::vector<Part> &parts_of_commit, const diagnosis::Advice &advice);

std::string text_of(const PartSet &parts);

}  // namespace brute_force

#endif
