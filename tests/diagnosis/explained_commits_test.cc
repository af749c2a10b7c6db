// Commits whose explanation is written down, and asked of the library by brute force, too.

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/diagnosis/correction_search.h"
#include "tests/diagnosis/explained_commit.h"
#include "tests/diagnosis/judged_element.h"
#include "tests/diagnosis/shorthand.h"

namespace {

class ExplainedCommits : public testing::TestWithParam<ExplainedCommit> {
 protected:
  const brute_force::Configurations commit_ =
      shorthand::commit_of(GetParam().both, GetParam().removed, GetParam().added);
};

TEST_P(ExplainedCommits, are_explained) {
  const diagnosis::Diagnosis found = JudgedElement::instance().diagnose(commit_, {});
  EXPECT_EQ(found.end, diagnosis::SearchEnd::complete);
  ASSERT_EQ(shorthand::short_findings(found), GetParam().findings);
  const std::vector<brute_force::Part> parts = brute_force::parts_of(commit_);
  std::multiset<std::string> told;
  for (const diagnosis::Finding &finding : found.findings) {
    told.insert(shorthand::short_advice(brute_force::alternatives(parts, finding.advice)));
  }
  EXPECT_EQ(told, std::multiset<std::string>(GetParam().advice.begin(), GetParam().advice.end()));
  EXPECT_EQ(shorthand::short_advice(brute_force::alternatives(parts, found.advice)), GetParam().for_all);
}

TEST_P(ExplainedCommits, are_explained_so_by_brute_force) {
  const brute_force::ConflictSearch search(commit_);
  ASSERT_EQ(shorthand::short_findings(search), GetParam().findings);
  brute_force::CorrectionSearch corrections(commit_);
  std::multiset<std::string> best;
  for (const brute_force::ExpectedFinding &finding : expected_findings(search)) {
    const auto sets = corrections.best_for(complaints_of(search, finding), 3);
    best.insert(shorthand::short_advice({sets.begin(), sets.end()}));
  }
  EXPECT_EQ(best, std::multiset<std::string>(GetParam().advice.begin(), GetParam().advice.end()));
  if (GetParam().findings.empty()) return;
  const auto sets = corrections.best_for_all(12);
  EXPECT_EQ(shorthand::short_advice({sets.begin(), sets.end()}), GetParam().for_all);
}

std::string case_name(const testing::TestParamInfo<ExplainedCommit> &info) { return info.param.name; }

INSTANTIATE_TEST_SUITE_P(Removals, ExplainedCommits, testing::ValuesIn(commits_with_removals()), case_name);
INSTANTIATE_TEST_SUITE_P(SharedParties, ExplainedCommits, testing::ValuesIn(commits_with_shared_parties()), case_name);
INSTANTIATE_TEST_SUITE_P(Limits, ExplainedCommits, testing::ValuesIn(commits_at_limits()), case_name);

}  // namespace
