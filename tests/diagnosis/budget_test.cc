// A budget is never exceeded, and what is told within it is right.

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/diagnosis/judged_element.h"
#include "tests/diagnosis/random_commits.h"
#include "tests/diagnosis/told_findings.h"

namespace {

using brute_force::Configurations;
using brute_force::EntrySet;
using brute_force::MergedEntries;
using diagnosis::Diagnosis;
using diagnosis::SearchEnd;

/// Every so many budgets of a commit are tried where it has many.
constexpr std::uint64_t kBudgets = 24;

EntrySet entries_at(const MergedEntries &entries, const std::set<std::string> &paths) {
  EntrySet set = 0;
  for (std::size_t entry = 0; entry < entries.size(); ++entry) {
    if (paths.count(entries[entry].path) != 0) set |= brute_force::bit(entry);
  }
  return entries.with_needs(set);
}

bool is_drawn_by(const MergedEntries &entries, const diagnosis::Conflict &conflict,
                 const std::set<std::string> &members) {
  const auto said = brute_force::answers(entries.restricted_to(entries_at(entries, members)));
  return said.count(brute_force::message_of(conflict.verdict)) != 0;
}

/// What makes the library look may be party of the finding by another of its conflicts; it is no trigger then.
bool is_drawn_by_its_members(const MergedEntries &entries, const diagnosis::Finding &finding,
                             const diagnosis::Conflict &conflict) {
  std::set<std::string> members = brute_force::party_paths(finding, conflict);
  members.merge(brute_force::trigger_paths(finding, conflict));
  if (is_drawn_by(entries, conflict, members)) return true;
  return std::any_of(finding.parties.begin(), finding.parties.end(), [&](const diagnosis::Party &party) {
    std::set<std::string> with_party = members;
    with_party.insert(to_text(party.path));
    return party.status != diagnosis::ChangeStatus::unchanged && is_drawn_by(entries, conflict, with_party);
  });
}

void expect_conflicts_to_draw(const Configurations &commit, const Diagnosis &found) {
  const MergedEntries entries(commit);
  for (const diagnosis::Finding &finding : found.findings) {
    for (const diagnosis::Conflict &conflict : finding.conflicts) {
      EXPECT_TRUE(is_drawn_by_its_members(entries, finding, conflict)) << conflict.verdict.text;
    }
  }
}

/// What is not told belongs to a rule that is named as not looked at in full.
void expect_missing_to_be_unproven(const Diagnosis &found, const Diagnosis &all) {
  const std::set<std::string> unproven(found.unproven_rules.begin(), found.unproven_rules.end());
  std::set<brute_force::Message> told;
  for (const diagnosis::Finding &finding : found.findings) {
    for (const diagnosis::Conflict &conflict : finding.conflicts)
      told.insert(brute_force::message_of(conflict.verdict));
  }
  for (const diagnosis::Finding &finding : all.findings) {
    const std::string rule = brute_force::finding_text(finding).rule;
    const bool is_told = std::any_of(finding.conflicts.begin(), finding.conflicts.end(), [&](const auto &conflict) {
      return told.count(brute_force::message_of(conflict.verdict)) != 0;
    });
    EXPECT_TRUE(is_told || unproven.count(rule) != 0) << rule << ": " << finding.verdict.text;
  }
}

std::multiset<std::string> told_texts(const Diagnosis &found) {
  std::multiset<std::string> texts;
  for (const diagnosis::Finding &finding : found.findings) texts.insert(brute_force::finding_text(finding).text());
  return texts;
}

Diagnosis with_calls(const Configurations &commit, std::uint64_t calls) {
  std::uint64_t asked = 0;
  diagnosis::Options options{.with_repairs = false, .budget = {.calls = calls, .time = std::chrono::hours(24)}};
  options.progress = [&asked](std::uint64_t, std::size_t) { ++asked; };
  Diagnosis found = JudgedElement::instance().diagnose(commit, options);
  EXPECT_LE(asked, calls);
  EXPECT_EQ(found.calls, asked);
  return found;
}

bool is_unfinished_advice(const diagnosis::Advice &advice) {
  return !advice.is_minimal || !advice.has_all_alternatives;
}

/// All findings may be known, and what to do not.
bool says_that_it_is_unfinished(const Diagnosis &found) {
  return found.end == SearchEnd::calls || is_unfinished_advice(found.advice) ||
         std::any_of(found.findings.begin(), found.findings.end(),
                     [](const diagnosis::Finding &finding) { return is_unfinished_advice(finding.advice); });
}

std::multiset<std::size_t> number_of_alternatives(const Diagnosis &found) {
  std::multiset<std::size_t> numbers{found.advice.alternatives.size()};
  for (const diagnosis::Finding &finding : found.findings) numbers.insert(finding.advice.alternatives.size());
  return numbers;
}

// A small budget may prove the same by another way.
void expect_right_within_every_budget(const Configurations &commit) {
  const Diagnosis all = diagnose(commit);
  const std::uint64_t step = 1 + all.calls / kBudgets;
  for (std::uint64_t calls = 0; calls < all.calls; calls += step) {
    SCOPED_TRACE("calls: " + std::to_string(calls));
    const Diagnosis found = with_calls(commit, calls);
    if (found.end == SearchEnd::complete) {
      EXPECT_EQ(told_texts(found), told_texts(all));
    }
    if (!says_that_it_is_unfinished(found)) {
      EXPECT_EQ(number_of_alternatives(found), number_of_alternatives(all));
    }
    expect_conflicts_to_draw(commit, found);
    expect_missing_to_be_unproven(found, all);
  }
  const Diagnosis complete = with_calls(commit, all.calls);
  EXPECT_EQ(complete.end, SearchEnd::complete);
  EXPECT_EQ(told_texts(complete), told_texts(all));
}

TEST(Budget, what_is_told_within_any_number_of_calls_is_right) {
  for_each_commit(12, expect_right_within_every_budget);
}

TEST(Budget, without_time_nothing_is_asked) {
  for_each_commit(5, [](const Configurations &commit) {
    const Diagnosis found =
        JudgedElement::instance().diagnose(commit, {.budget = {.calls = 1000, .time = std::chrono::milliseconds(0)}});
    EXPECT_EQ(found.calls, 0U);
    if (JudgedElement::instance().judge(commit).decision == host::Decision::accepted) return;
    EXPECT_EQ(found.end, SearchEnd::time);
  });
}

TEST(Budget, an_interruption_ends_the_search_and_leaves_what_was_found) {
  for_each_commit(5, [](const Configurations &commit) {
    std::uint64_t asked = 0;
    diagnosis::Options options{.with_repairs = false, .budget = ample()};
    options.progress = [&asked](std::uint64_t, std::size_t) { ++asked; };
    options.is_interrupted = [&asked] { return asked >= 10; };
    const Diagnosis found = JudgedElement::instance().diagnose(commit, options);
    EXPECT_LE(found.calls, 10U);
    EXPECT_EQ(found.end, found.calls < 10 ? SearchEnd::complete : SearchEnd::interrupted);
    expect_conflicts_to_draw(commit, found);
  });
}

}  // namespace
