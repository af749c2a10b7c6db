#ifndef TESTS_DIAGNOSIS_TOLD_REPAIRS_H
#define TESTS_DIAGNOSIS_TOLD_REPAIRS_H

#include <string>

#include "diagnosis/finding.h"
#include "tests/diagnosis/merged_entries.h"

namespace brute_force {

/// The node that a repair changes, by its paths in the candidate before and after.
struct RepairedPath {
  std::string before;
  std::string after;
};

/// What the repair's path becomes with one of its values: "3-9" are the keys of a range, a leaf keeps its path.
RepairedPath repaired_path(const diagnosis::Repair &repair, const std::string &value);

/// The commit with one of the repair's values written into the text of the candidate.
Configurations repaired(const Configurations &commit, const diagnosis::Repair &repair, const std::string &value);

}  // namespace brute_force

#endif
