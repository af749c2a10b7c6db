#ifndef TESTS_DIAGNOSIS_EXPECTED_FINDINGS_H
#define TESTS_DIAGNOSIS_EXPECTED_FINDINGS_H

#include <string>
#include <vector>

#include "tests/diagnosis/conflicts.h"

namespace brute_force {

/// Conflicts of one rule about one resource that share parties.
using ExpectedFinding = std::vector<Conflict>;

std::vector<ExpectedFinding> expected_findings(const ConflictSearch &search);

/// A finding as text, the same for the same finding: its rule, and a line for each conflict with its message, parties
/// and triggers.
struct FindingText {
  std::string rule;
  std::string standing;  ///< "new", "in force" or, where it has conflicts of both kinds, "partly in force"
  std::vector<std::string> lines;

  std::string text() const;
};

FindingText finding_text(const ConflictSearch &search, const ExpectedFinding &finding);

/// One conflict's line. Of a rule that counts or lists, nothing but the parties is told.
std::string conflict_line(const Message &message, std::size_t enough, const std::vector<std::string> &parties,
                          const std::vector<std::string> &triggers);

/// The findings of a commit as sorted texts.
std::vector<std::string> finding_texts(const ConflictSearch &search);

}  // namespace brute_force

#endif
