// The commits of the search's benchmark, a hundredth of their size: the search finds what they are made to have.

#include "bench/search_commits.h"

#include <gtest/gtest.h>

#include <string>

#include "diagnosis/diagnose.h"
#include "tests/support/build_under_test.h"

namespace {

constexpr std::size_t kScale = 100;
constexpr diagnosis::Budget kAmple{.calls = 1'000'000, .time = std::chrono::hours(24)};

class SearchCommits : public testing::TestWithParam<bench::SearchCommitKind> {};

TEST_P(SearchCommits, have_the_findings_that_they_are_made_for) {
  static const element::Schema schema;
  const bench::SearchCommit commit = make_search_commit(schema, GetParam(), kScale);
  const auto transaction = element::make_transaction(commit.running, commit.candidate, commit.profile);
  host::HostSession session(commit.profile);
  const host::Plugin plugin(plugin_file());
  const host::Verdict verdict = host::validate_commit(plugin, session, *transaction);
  const diagnosis::Diagnosis found = diagnosis::diagnose(plugin, session, *transaction, verdict, {.budget = kAmple});
  EXPECT_EQ(found.end, diagnosis::SearchEnd::complete);
  // A hundredth of the pseudowires are below the limit.
  const bool has_limit = GetParam() == bench::SearchCommitKind::pseudowires_beyond_limit;
  EXPECT_EQ(found.findings.size(), commit.findings - (has_limit ? 1 : 0));
}

std::string test_name(const testing::TestParamInfo<bench::SearchCommitKind> &tested) {
  return std::string(bench::name(tested.param));
}

INSTANTIATE_TEST_SUITE_P(Kinds, SearchCommits, testing::ValuesIn(bench::kSearchCommitKinds), test_name);

}  // namespace
