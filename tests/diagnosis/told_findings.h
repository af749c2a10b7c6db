#ifndef TESTS_DIAGNOSIS_TOLD_FINDINGS_H
#define TESTS_DIAGNOSIS_TOLD_FINDINGS_H

#include <set>
#include <string>

#include "diagnosis/finding.h"
#include "tests/diagnosis/expected_findings.h"

namespace brute_force {

/// A finding in the form of an expected one.
FindingText finding_text(const diagnosis::Finding &finding);

std::set<std::string> party_paths(const diagnosis::Finding &finding, const diagnosis::Conflict &conflict);
std::set<std::string> trigger_paths(const diagnosis::Finding &finding, const diagnosis::Conflict &conflict);

}  // namespace brute_force

#endif
