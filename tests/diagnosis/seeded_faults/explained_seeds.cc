#include "tests/diagnosis/seeded_faults/explained_seeds.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/diagnosis/told_advice.h"

namespace seeded {
namespace {

using brute_force::Message;
using brute_force::message_of;
using diagnosis::ChangeStatus;
using diagnosis::Finding;
using Texts = std::multiset<std::string>;

std::string rule_of(const Finding &finding) { return message_of(finding.verdict).rule; }

std::string name_of(ChangeStatus status) {
  const char *const names[] = {"unchanged", "added", "changed", "removed"};
  return names[static_cast<std::size_t>(status)];
}

Texts without(Texts all, const Texts &gone) {
  for (const std::string &text : gone) {
    if (const auto found = all.find(text); found != all.end()) all.erase(found);
  }
  return all;
}

void expect_same(const Texts &found, const Texts &expected) {
  EXPECT_EQ(without(found, expected), Texts{}) << "found, not expected";
  EXPECT_EQ(without(expected, found), Texts{}) << "expected, not found";
}

/// Parties and triggers.
std::vector<diagnosis::Party> members_of(const Finding &finding) {
  std::vector<diagnosis::Party> members = finding.parties;
  members.insert(members.end(), finding.triggers.begin(), finding.triggers.end());
  return members;
}

/// A list of interfaces in the text depends on what else the commit has.
std::string text_of(const SeededFault &fault) {
  std::string text = fault.text.value_or("");
  if (fault.rule == "tls-port-based-vpls") text.erase(0, text.find("will run"));
  return fault.rule + ": " + text;
}

bool is_around(const std::string &path, const std::string &other) {
  return path == other || other.starts_with(path + "/");
}

/// The entries at and around these.
bool holds_or_is_around(const std::set<std::string> &paths, const std::string &path) {
  return std::any_of(paths.begin(), paths.end(), [&path](const std::string &one) { return is_around(path, one); });
}

}  // namespace

ExplainedSeeds::ExplainedSeeds(SeededCommit commit)
    : commit_(std::move(commit)),
      verdict_(element_.judge(commit_.configurations)),
      found_(
          element_.diagnose(commit_.configurations,
                            {.with_repairs = false, .budget = {.calls = 1'000'000, .time = std::chrono::hours(24)}})) {}

void ExplainedSeeds::expect_findings() {
  expect_each_fault_once();
  if (testing::Test::HasFailure()) return;
  expect_what_the_device_says_first();
  expect_parties();
  expect_parties_to_draw();
  expect_smallest_commits_to_draw();
}

const SeededFault &ExplainedSeeds::seeded_as(const Finding &finding) const {
  const auto is_of_rule = [&](const SeededFault &fault) { return fault.rule == rule_of(finding); };
  const auto is_same = [&](const SeededFault &fault) {
    return is_of_rule(fault) && fault.text && text_of(fault) == text_of({fault.rule, finding.verdict.text, {}});
  };
  const auto same = std::find_if(commit_.faults.begin(), commit_.faults.end(), is_same);
  return same != commit_.faults.end() ? *same : *std::find_if(commit_.faults.begin(), commit_.faults.end(), is_of_rule);
}

std::set<Message> ExplainedSeeds::answers(const brute_force::Configurations &commit) {
  std::set<Message> said;
  for (const host::PointVerdict &answer : element_.judge(commit, {.all_points = true}).points) {
    if (answer.answer != host::Answer::accepted) said.insert(message_of(answer));
  }
  return said;
}

std::set<Message> ExplainedSeeds::answers_about(const Paths &paths) {
  return answers(restricted(commit_.configurations,
                            [&paths](const std::string &path) { return holds_or_is_around(paths, path); }));
}

// Of what a limit counts the text depends on all else that is seeded.
void ExplainedSeeds::expect_each_fault_once() const {
  Texts seeded;
  Texts found;
  for (const SeededFault &fault : commit_.faults) seeded.insert(text_of(fault));
  for (const Finding &finding : found_.findings) {
    const auto same_rule = std::find_if(commit_.faults.begin(), commit_.faults.end(),
                                        [&](const SeededFault &one) { return one.rule == rule_of(finding); });
    const bool has_any_text = same_rule != commit_.faults.end() && !same_rule->text;
    found.insert(text_of({rule_of(finding), has_any_text ? std::nullopt : std::optional(finding.verdict.text), {}}));
    EXPECT_TRUE(finding.is_minimal);
  }
  expect_same(found, seeded);
  EXPECT_EQ(found_.end, diagnosis::SearchEnd::complete);
}

void ExplainedSeeds::expect_what_the_device_says_first() const {
  std::vector<Message> device;
  std::vector<Message> first;
  for (const host::PointVerdict &answer : spoken(verdict_)) device.push_back(message_of(answer));
  for (const Finding &finding : found_.findings) {
    if (finding.from_device) first.push_back(message_of(finding.verdict));
  }
  EXPECT_EQ(first, device);
  EXPECT_TRUE(std::is_partitioned(found_.findings.begin(), found_.findings.end(),
                                  [](const Finding &finding) { return finding.from_device; }));
}

void ExplainedSeeds::expect_parties() const {
  for (const Finding &finding : found_.findings) {
    SCOPED_TRACE(finding.verdict.text);
    EXPECT_TRUE(std::is_partitioned(finding.parties.begin(), finding.parties.end(),
                                    [](const auto &party) { return party.status != ChangeStatus::unchanged; }));
    const SeededFault &seeded = seeded_as(finding);
    if (seeded.parties.empty()) continue;
    Texts expected;
    Texts named;
    for (const ExpectedParty &party : seeded.parties) expected.insert(party.path + " " + name_of(party.status));
    for (const auto &member : members_of(finding)) named.insert(to_text(member.path) + " " + name_of(member.status));
    expect_same(named, expected);
  }
}

// Nothing invented: alone, and beside all that is no party of another finding. Nothing superfluous: not without any one
// of the parties; of a limit, not without as many as are too many.
void ExplainedSeeds::expect_parties_to_draw() {
  for (const Finding &finding : found_.findings) {
    SCOPED_TRACE(finding.verdict.text);
    const Message message = message_of(finding.verdict);
    Paths own;
    Paths of_others;
    for (const auto &member : members_of(finding)) own.insert(to_text(member.path));
    for (const Finding &other : found_.findings) {
      if (&other == &finding) continue;
      for (const auto &member : members_of(other)) of_others.insert(to_text(member.path));
    }
    EXPECT_EQ(answers_about(own).count(message), 1U) << "alone";
    const auto beside = [&](const std::string &path) {
      return holds_or_is_around(own, path) || of_others.count(path) == 0;
    };
    EXPECT_EQ(answers(restricted(commit_.configurations, beside)).count(message), 1U) << "beside the others";
    // Of what a limit counts one entry may weigh more than another; how many are enough is told instead.
    if (finding.conflicts.size() != 1 || finding.parties.size() > 20 || finding.enough > 0) continue;
    for (const std::string &party : own) {
      Paths rest = own;
      rest.erase(party);
      EXPECT_EQ(answers_about(rest).count(message), 0U) << "without " << party;
    }
  }
}

// What one finding's advice leaves is what other findings say.
void ExplainedSeeds::expect_advice_to_help() {
  if (found_.findings.empty()) return;
  const std::vector<brute_force::Part> parts = brute_force::parts_of(commit_.configurations);
  for (const Finding &finding : found_.findings) {
    SCOPED_TRACE(finding.verdict.text);
    ASSERT_FALSE(finding.advice.alternatives.empty());
    std::set<Message> of_others;
    for (const Finding &other : found_.findings) {
      if (&other == &finding) continue;
      for (const diagnosis::Conflict &conflict : other.conflicts) of_others.insert(message_of(conflict.verdict));
      of_others.insert(message_of(other.verdict));
    }
    for (const diagnosis::CorrectionSet &set : finding.advice.alternatives) {
      const brute_force::PartSet back = part_set(parts, set);
      for (const Message &left : answers(taken_back(commit_.configurations, back))) {
        EXPECT_EQ(of_others.count(left), 1U) << left.text << "\nafter " << text_of(back);
      }
      if (&set - finding.advice.alternatives.data() > 3) break;
    }
  }
  ASSERT_FALSE(found_.advice.alternatives.empty());
  const brute_force::PartSet all = part_set(parts, found_.advice.alternatives.front());
  for (const Message &left : answers(taken_back(commit_.configurations, all))) ADD_FAILURE() << left.text;
}

void ExplainedSeeds::expect_smallest_commits_to_draw() {
  for (const Finding &finding : found_.findings) {
    SCOPED_TRACE(finding.verdict.text);
    const auto said = answers({finding.smallest.running, finding.smallest.candidate});
    EXPECT_EQ(said.count(message_of(finding.verdict)), 1U);
  }
}

}  // namespace seeded
