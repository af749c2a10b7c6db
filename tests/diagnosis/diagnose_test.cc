#include "diagnosis/diagnose.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "tests/diagnosis/judged_element.h"

namespace {

using diagnosis::Diagnosis;
using diagnosis::Fault;

const std::string vpws = "/mpls/l2vpn-config/l2vpn/vpws-group{metro}";

std::string attachment(const std::string &vpn, const std::string &port, const std::string &vlan) {
  return vpws + "/vpn{" + vpn + "}/access-interface{" + port + "}/dot1q = " + vlan;
}

std::string same_dot1q(const std::string &first, const std::string &second, const std::string &port) {
  return "vpws-group metro vpn " + first + " and vpws-group metro vpn " + second +
         " must not be configured with the same dot1q on interface " + port;
}

Lines both(Lines lines, const Lines &more) {
  lines.insert(lines.end(), more.begin(), more.end());
  return lines;
}

Diagnosis diagnose(const Lines &running, const Lines &added, const diagnosis::Budget &budget = {}) {
  JudgedElement &element = JudgedElement::instance();
  const auto transaction = element.transaction(tree_of(running), tree_of(both(running, added)));
  return element.diagnose(*transaction, {.all_faults = true, .budget = budget, .progress = {}});
}

/// "TEXT", or "TEXT (in force)" for what the running configuration has.
Lines messages(const Diagnosis &diagnosis) {
  Lines lines;
  for (const Fault &fault : diagnosis.faults) {
    lines.push_back(fault.verdict.text + (fault.in_running ? " (in force)" : ""));
  }
  return lines;
}

TEST(Diagnose, a_fault_of_the_commit_is_not_in_force) {
  const Diagnosis found = diagnose({attachment("east", "eth1", "100")}, {attachment("west", "eth1", "100")});
  EXPECT_EQ(messages(found), (Lines{same_dot1q("west", "east", "eth1")}));
  EXPECT_TRUE(found.complete);
}

TEST(Diagnose, a_fault_in_force_is_told_once_however_many_changes_make_the_library_look) {
  const Lines running{attachment("east", "eth1", "100"), attachment("west", "eth1", "100")};
  const Diagnosis found = diagnose(
      running, {attachment("north", "eth2", "1"), attachment("south", "eth2", "2"), attachment("centre", "eth3", "3")});
  EXPECT_EQ(messages(found), (Lines{same_dot1q("west", "east", "eth1") + " (in force)"}));
  EXPECT_TRUE(found.complete);
}

TEST(Diagnose, faults_of_the_commit_are_found_beside_one_in_force_and_with_either_of_its_parties) {
  const Lines running{attachment("east", "eth1", "100"), attachment("west", "eth1", "100"),
                      attachment("east", "eth2", "200"), attachment("west", "eth3", "300")};
  const Diagnosis found = diagnose(running, {attachment("north", "eth2", "200"), attachment("south", "eth3", "300"),
                                             attachment("one", "eth2", "7"), attachment("two", "eth2", "7")});
  Lines all = messages(found);
  std::sort(all.begin(), all.end());
  Lines expected{same_dot1q("west", "east", "eth1") + " (in force)", same_dot1q("north", "east", "eth2"),
                 same_dot1q("west", "south", "eth3"), same_dot1q("two", "one", "eth2")};
  std::sort(expected.begin(), expected.end());
  EXPECT_EQ(all, expected);
}

TEST(Diagnose, two_faults_in_force_are_two) {
  const Lines running{attachment("east", "eth1", "100"), attachment("west", "eth1", "100"),
                      attachment("north", "eth2", "100"), attachment("south", "eth2", "100")};
  Lines all = messages(diagnose(running, {attachment("one", "eth3", "7"), attachment("two", "eth3", "8")}));
  std::sort(all.begin(), all.end());
  EXPECT_EQ(all, (Lines{same_dot1q("south", "north", "eth2") + " (in force)",
                        same_dot1q("west", "east", "eth1") + " (in force)"}));
}

// Both are changed in their own VPN: the first is a party of the fault in force, not only what makes the library look.
TEST(Diagnose, several_changes_of_a_party_of_a_fault_in_force_tell_it_once) {
  const std::string campus = "/mpls/l2vpn-config/l2vpn/vpls-group{campus}/vpn{data}/bridge-domain";
  const Diagnosis found =
      diagnose({campus + "/access-interface{eth0}", campus + "/dot1q = 100", attachment("east", "eth0", "100")},
               {campus + "/bridge-mtu = 1500", campus + "/transparent-lan-service", attachment("west", "eth0", "100")});
  EXPECT_EQ(
      messages(found),
      (Lines{same_dot1q("west", "east", "eth0"),
             "vpls-group campus vpn data and vpws-group metro vpn east must not be configured with the same dot1q "
             "on interface eth0 (in force)"}));
}

TEST(Diagnose, a_new_attachment_on_an_uplink_is_found_beside_one_in_force) {
  const Lines running{"/mpls/ldp/interface{core}", "/config/l3-interface{core}/vlan = 4000",
                      "/config/vlan{4000}/interface{eth3}", attachment("east", "eth3", "100")};
  Lines candidate = running;
  candidate.back() = attachment("east", "eth3", "101");
  candidate.push_back(attachment("west", "eth3", "7"));
  JudgedElement &element = JudgedElement::instance();
  const auto transaction = element.transaction(tree_of(running), tree_of(candidate));
  const Diagnosis found = element.diagnose(*transaction, {.all_faults = true, .budget = {}, .progress = {}});
  std::set<std::string> touched;
  for (const Fault &fault : found.faults) touched.insert(fault.parties.at(0).vpn);
  EXPECT_EQ(found.faults.size(), 2u);
  EXPECT_EQ(touched, (std::set<std::string>{"east", "west"}));
}

/// A commit that draws three messages, one behind the other.
Diagnosis three_faults(const diagnosis::Budget &budget) {
  return diagnose(
      {attachment("east", "eth1", "100"), attachment("east", "eth2", "200"), attachment("east", "eth3", "7")},
      {attachment("north", "eth1", "100"), attachment("south", "eth2", "200"), attachment("west", "eth3", "7")},
      budget);
}

TEST(Diagnose, the_same_commit_has_the_same_faults_every_time) {
  const Diagnosis once = three_faults({});
  const Diagnosis again = three_faults({});
  EXPECT_EQ(once.faults.size(), 3u);
  EXPECT_EQ(messages(again), messages(once));
  EXPECT_EQ(again.calls, once.calls);
}

TEST(Diagnose, whatever_calls_are_left_what_is_told_draws_its_message) {
  JudgedElement &element = JudgedElement::instance();
  const Diagnosis all = three_faults({});
  for (std::uint64_t calls = 1; calls < all.calls; calls += 3) {
    SCOPED_TRACE(calls);
    const Diagnosis found = three_faults({.calls = calls, .time = std::chrono::hours(1)});
    EXPECT_FALSE(found.complete);
    EXPECT_LE(found.calls, calls);
    ASSERT_FALSE(found.faults.empty());
    for (const Fault &fault : found.faults) {
      const auto smallest = element.transaction(fault.smallest.running, fault.smallest.candidate);
      const host::Verdict verdict = element.judge(*smallest);
      EXPECT_EQ(verdict.points.back().text, fault.verdict.text);
      EXPECT_FALSE(fault.change.empty());
    }
  }
  EXPECT_TRUE(three_faults({.calls = all.calls, .time = std::chrono::hours(1)}).complete);
}

TEST(Diagnose, without_time_nothing_is_asked) {
  const Diagnosis found = three_faults({.calls = 1000, .time = std::chrono::milliseconds(0)});
  EXPECT_EQ(found.calls, 0u);
  EXPECT_FALSE(found.complete);
  EXPECT_EQ(found.faults.size(), 1u);
}

TEST(Diagnose, one_conflict_among_a_thousand_neighbours_takes_few_calls) {
  Lines added;
  for (int i = 0; i < 1000; ++i) {
    added.push_back("/mpls/l2vpn-config/l2vpn/vpls-group{campus}/vpn{" + std::to_string(i / 400) +
                    "}/vfi/neighbor{10.0." + std::to_string(i / 200) + "." + std::to_string(i % 200) + "}/pw-id = 1");
  }
  added.push_back(vpws + "/vpn{east}/neighbor{10.0.3.7}/pw-id = 1");
  const Diagnosis found = diagnose({}, added);
  EXPECT_EQ(messages(found), (Lines{"The PW ID 1 must be unique per neighbor"}));
  EXPECT_LT(found.calls, 200u);
}

}  // namespace
