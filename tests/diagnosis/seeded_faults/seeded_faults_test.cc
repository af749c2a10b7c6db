// Commits with faults of different kinds seeded in them: each is found, once, with what draws it and what repairs it.
//
// Every commit comes from a seed, which a failure prints; DIAGNOSIS_SEED=N in the environment begins with that seed,
// DIAGNOSIS_COMMITS=N draws so many for each message.

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "rules/rule.h"
#include "tests/diagnosis/seeded_faults/background.h"
#include "tests/diagnosis/seeded_faults/explained_seeds.h"
#include "tests/diagnosis/seeded_faults/name_pool.h"
#include "tests/diagnosis/seeds.h"
#include "tests/support/build_under_test.h"

namespace seeded {

const std::uint32_t kVpnLimit = 120;

namespace {

constexpr std::uint32_t kCommitsOfARule = 2;

/// A thousand pseudowires take their time.
std::uint32_t commits_of(const std::string &rule) {
  return commits_to_draw(rule == "pseudowire-limit" ? 1 : kCommitsOfARule);
}

class SeededFaults : public testing::TestWithParam<std::string> {};

TEST_P(SeededFaults, are_all_found_once_with_what_draws_them) {
  for (std::uint32_t i = 0; i < commits_of(GetParam()) && !HasFailure(); ++i) {
    const std::uint32_t seed = first_seed() + i;
    SCOPED_TRACE("DIAGNOSIS_SEED=" + std::to_string(seed));
    ExplainedSeeds(draw_commit(GetParam(), seed)).expect_findings();
  }
}

TEST_P(SeededFaults, have_advice_that_helps) {
  if (is_sanitized()) GTEST_SKIP() << "advice under a sanitizer is looked for by diagnosis and followed_advice";
  for (std::uint32_t i = 0; i < commits_of(GetParam()) && !HasFailure(); ++i) {
    const std::uint32_t seed = first_seed() + i;
    SCOPED_TRACE("DIAGNOSIS_SEED=" + std::to_string(seed));
    ExplainedSeeds(draw_commit(GetParam(), seed)).expect_advice_to_help();
  }
}

std::vector<std::string> seeded_rules() {
  std::vector<std::string> rules;
  for (const FaultKind &kind : fault_kinds()) rules.emplace_back(kind.rule);
  return rules;
}

std::string test_name(const testing::TestParamInfo<std::string> &info) {
  std::string name = info.param;
  std::replace(name.begin(), name.end(), '-', '_');
  return name;
}

INSTANTIATE_TEST_SUITE_P(Rules, SeededFaults, testing::ValuesIn(seeded_rules()), test_name);

TEST(SeededRules, are_all_but_the_one_that_no_commit_draws) {
  std::set<std::string> rules;
  for (const rules::Rule &rule : rules::all_rules()) rules.emplace(rule.id);
  // The element never asks with a path that holds no node name.
  EXPECT_EQ(rules.erase("interface-information"), 1U);
  const std::vector<std::string> seeded = seeded_rules();
  EXPECT_EQ(std::set<std::string>(seeded.begin(), seeded.end()), rules);
  EXPECT_EQ(seeded.size(), rules.size());
}

TEST(SeededBackground, is_accepted_without_a_warning) {
  for (std::uint32_t i = 0; i < 100; ++i) {
    const std::uint32_t seed = first_seed() + i;
    SCOPED_TRACE("DIAGNOSIS_SEED=" + std::to_string(seed));
    NamePool names(seed);
    Draft draft;
    put_background(draft, names);
    put_clean_vpns(draft, names, 20);
    const host::Verdict verdict = JudgedElement::instance().judge({tree_of(draft.running), tree_of(draft.candidate)});
    EXPECT_GT(verdict.points_fired, 0U);
    for (const host::PointVerdict &answer : spoken(verdict)) ADD_FAILURE() << answer.text;
  }
}

}  // namespace
}  // namespace seeded
