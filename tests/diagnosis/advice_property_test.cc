// Random commits of few parts: what is advised helps when it is done, and no set of parts is better.

#include <gtest/gtest.h>

#include "tests/diagnosis/correction_search.h"
#include "tests/diagnosis/judged_element.h"
#include "tests/diagnosis/random_commits.h"
#include "tests/diagnosis/told_advice.h"
#include "tests/diagnosis/told_complaints.h"
#include "tests/diagnosis/told_findings.h"

namespace {

using brute_force::Complaint;
using brute_force::Configurations;
using brute_force::CorrectionSearch;
using brute_force::PartSet;

constexpr std::size_t kMostParts = 12;

/// Sets of more parts are not tried for one finding: each takes a search for conflicts.
constexpr std::size_t kMostTakenBack = 2;

std::set<std::string> lines_of(const std::set<PartSet> &sets) {
  std::set<std::string> lines;
  for (const PartSet &set : sets) lines.insert(brute_force::text_of(set));
  return lines;
}

std::string list(const std::set<PartSet> &sets) {
  std::string text;
  for (const std::string &line : lines_of(sets)) text += line + "\n";
  return text;
}

/// Every best set is told, and the first one told is the best by rank and order.
void expect_best(const diagnosis::Advice &advice, const std::set<PartSet> &told, const std::set<PartSet> &best) {
  EXPECT_TRUE(advice.is_minimal);
  if (advice.has_all_alternatives) {
    EXPECT_EQ(list(told), list(best));
  } else {
    for (const PartSet &set : told) EXPECT_EQ(best.count(set), 1U) << brute_force::text_of(set);
  }
}

std::set<PartSet> expect_help(CorrectionSearch &search, const diagnosis::Finding &finding) {
  const std::set<Complaint> complaints = brute_force::told_complaints(finding);
  std::set<PartSet> told = brute_force::alternatives(search.parts(), finding.advice);
  EXPECT_FALSE(told.empty());
  for (const PartSet &set : told) {
    EXPECT_TRUE(brute_force::is_closed(search.parts(), set)) << brute_force::text_of(set);
    EXPECT_TRUE(search.helps(set, complaints)) << brute_force::text_of(set);
  }
  return told;
}

void expect_advice_of_finding(CorrectionSearch &search, const diagnosis::Finding &finding) {
  SCOPED_TRACE(brute_force::finding_text(finding).text());
  const std::set<PartSet> told = expect_help(search, finding);
  const std::set<Complaint> complaints = brute_force::told_complaints(finding);
  const std::vector<PartSet> best = search.best_for(complaints, kMostTakenBack);
  if (!best.empty()) expect_best(finding.advice, told, {best.begin(), best.end()});
}

void expect_advice_for_all(CorrectionSearch &search, const diagnosis::Diagnosis &found) {
  SCOPED_TRACE("for all findings");
  const std::vector<PartSet> best = search.best_for_all(kMostParts);
  const std::set<PartSet> told = brute_force::alternatives(search.parts(), found.advice);
  for (const PartSet &set : told) EXPECT_TRUE(search.is_accepted_without(set)) << brute_force::text_of(set);
  expect_best(found.advice, told, {best.begin(), best.end()});
}

void expect_best_advice(const Configurations &commit) {
  CorrectionSearch search(commit);
  if (search.parts().size() > kMostParts) return;
  const diagnosis::Diagnosis found = diagnose(commit);
  for (const diagnosis::Finding &finding : found.findings) expect_advice_of_finding(search, finding);
  if (!found.findings.empty()) expect_advice_for_all(search, found);
}

TEST(AdviceProperty, advice_helps_and_none_is_better) { for_each_commit(32, expect_best_advice); }

/// The way of larger commits, taken on small ones: what it advises helps.
void expect_advice_of_the_way_for_larger_commits(const Configurations &commit) {
  CorrectionSearch search(commit);
  if (search.parts().size() > kMostParts) return;
  const diagnosis::Diagnosis found =
      JudgedElement::instance().diagnose(commit, {.with_repairs = false, .budget = ample(), .enumerated_sets = 0});
  for (const diagnosis::Finding &finding : found.findings) {
    SCOPED_TRACE(brute_force::finding_text(finding).text());
    expect_help(search, finding);
  }
  for (const PartSet &set : brute_force::alternatives(search.parts(), found.advice)) {
    EXPECT_TRUE(search.is_accepted_without(set)) << brute_force::text_of(set);
  }
  EXPECT_EQ(found.advice.alternatives.empty(), found.findings.empty());
}

TEST(AdviceProperty, advice_helps_where_sets_are_not_enumerated) {
  for_each_commit(32, expect_advice_of_the_way_for_larger_commits);
}

}  // namespace
