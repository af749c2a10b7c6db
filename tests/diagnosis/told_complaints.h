#ifndef TESTS_DIAGNOSIS_TOLD_COMPLAINTS_H
#define TESTS_DIAGNOSIS_TOLD_COMPLAINTS_H

#include <set>

#include "diagnosis/finding.h"
#include "tests/diagnosis/correction_search.h"

namespace brute_force {

/// What a finding complains about.
std::set<Complaint> told_complaints(const diagnosis::Finding &finding);

}  // namespace brute_force

#endif
