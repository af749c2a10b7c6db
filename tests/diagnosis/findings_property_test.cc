// Random commits of few entries: the findings are those that asking about every set of entries shows, no more and no
// less.

#include <gtest/gtest.h>

#include <map>
#include <set>

#include "tests/diagnosis/judged_element.h"
#include "tests/diagnosis/random_commits.h"
#include "tests/diagnosis/told_findings.h"

namespace {

using brute_force::Configurations;
using brute_force::ConflictSearch;
using brute_force::ExpectedFinding;
using brute_force::FindingText;
using diagnosis::Diagnosis;

/// Findings by what they say, with "new", "in force" or "partly in force".
using Standings = std::multimap<std::string, std::string>;

void add(Standings &standings, FindingText text) {
  const std::string standing = text.standing;
  text.standing = "";
  standings.emplace(text.text(), standing);
}

using Rules = std::set<std::string>;

/// Those of the rules that are named as not looked at in full are left out.
Standings told(const Diagnosis &diagnosis, const Rules &left_out) {
  Standings standings;
  for (const diagnosis::Finding &finding : diagnosis.findings) {
    FindingText text = brute_force::finding_text(finding);
    if (left_out.count(text.rule) == 0) add(standings, std::move(text));
  }
  return standings;
}

Standings expected(const ConflictSearch &search, const Rules &left_out) {
  Standings standings;
  for (const ExpectedFinding &finding : brute_force::expected_findings(search)) {
    FindingText text = brute_force::finding_text(search, finding);
    if (left_out.count(text.rule) == 0) add(standings, std::move(text));
  }
  return standings;
}

std::string texts(const Standings &standings) {
  std::string text;
  for (const auto &[finding, standing] : standings) text += finding + "\n";
  return text;
}

void expect_same_standing(const Standings &told, const Standings &expected) {
  for (auto one = told.begin(), other = expected.begin(); one != told.end(); ++one, ++other) {
    if (other->second == "partly in force") continue;
    EXPECT_EQ(one->second, other->second) << one->first;
  }
}

Diagnosis expect_findings_of_brute_force(const Configurations &commit, const diagnosis::Options &options) {
  const ConflictSearch search(commit);
  Diagnosis found = JudgedElement::instance().diagnose(commit, options);
  EXPECT_EQ(found.end, diagnosis::SearchEnd::complete);
  const Rules left_out(found.unproven_rules.begin(), found.unproven_rules.end());
  const Standings told_ones = told(found, left_out);
  const Standings expected_ones = expected(search, left_out);
  EXPECT_EQ(texts(told_ones), texts(expected_ones));
  if (!testing::Test::HasFailure()) expect_same_standing(told_ones, expected_ones);
  return found;
}

TEST(FindingsProperty, of_enumeration_are_those_of_brute_force) {
  for_each_commit(80, [](const Configurations &commit) {
    const Diagnosis found = expect_findings_of_brute_force(commit, {.with_repairs = false, .budget = ample()});
    EXPECT_TRUE(found.unproven_rules.empty());
  });
}

TEST(FindingsProperty, of_the_search_in_large_commits_are_those_of_brute_force) {
  std::size_t complete = 0;
  std::size_t all = 0;
  for_each_commit(80, [&](const Configurations &commit) {
    const Diagnosis found =
        expect_findings_of_brute_force(commit, {.with_repairs = false, .budget = ample(), .enumerated_sets = 0});
    complete += found.unproven_rules.empty() ? 1U : 0U;
    ++all;
  });
  EXPECT_GE(complete, all * 9 / 10) << "of so few nothing is claimed to be left out";
}

}  // namespace
