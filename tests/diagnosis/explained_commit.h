#ifndef TESTS_DIAGNOSIS_EXPLAINED_COMMIT_H
#define TESTS_DIAGNOSIS_EXPLAINED_COMMIT_H

#include <ostream>
#include <string>
#include <vector>

/// A commit in short lines (see shorthand.h), and how it must be explained.
struct ExplainedCommit {
  using Lines = std::vector<std::string>;

  std::string name;
  Lines both;
  Lines removed;
  Lines added;  ///< what is changed stands in `removed` as it was and in `added` as it is
  Lines findings;
  Lines advice;         ///< one a finding
  std::string for_all;  ///< what to take back for all findings
};

inline void PrintTo(const ExplainedCommit &commit, std::ostream *out) { *out << commit.name; }

/// What searches that reduce the change, or ask about parts of it, get wrong.
std::vector<ExplainedCommit> commits_with_removals();
std::vector<ExplainedCommit> commits_with_shared_parties();
std::vector<ExplainedCommit> commits_at_limits();

#endif
