// Random commits of few entries: the findings are those that asking about every set of entries shows, no more and no
// less.

#include <gtest/gtest.h>

#include <map>

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

Standings told(const Diagnosis &diagnosis) {
  Standings standings;
  for (const diagnosis::Finding &finding : diagnosis.findings) add(standings, brute_force::finding_text(finding));
  return standings;
}

Standings expected(const ConflictSearch &search) {
  Standings standings;
  for (const ExpectedFinding &finding : brute_force::expected_findings(search)) {
    add(standings, brute_force::finding_text(search, finding));
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

void expect_findings_of_brute_force(const Configurations &commit) {
  const ConflictSearch search(commit);
  const Diagnosis found = diagnose(commit);
  EXPECT_EQ(found.end, diagnosis::SearchEnd::complete);
  EXPECT_TRUE(found.unproven_rules.empty());
  const Standings told_ones = told(found);
  const Standings expected_ones = expected(search);
  ASSERT_EQ(texts(told_ones), texts(expected_ones));
  expect_same_standing(told_ones, expected_ones);
}

TEST(FindingsProperty, findings_are_those_of_brute_force) { for_each_commit(150, expect_findings_of_brute_force); }

}  // namespace
