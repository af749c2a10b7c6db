#include "diagnosis/diagnose.h"

#include <gtest/gtest.h>

#include "tests/element/print.h"

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

// The library reads the card's limits once a process: one element for all tests.
element::Profile element_profile() {
  return element::Profile({16, 16, 16, 16}, {{"ge-1", 1, 1001}, {"ge-2", 2, 1002}, {"ge-3", 3, 1003}});
}

Diagnosis diagnose(const Lines &running, const Lines &added) {
  static const element::Profile profile = element_profile();
  static host::Seam seam(profile);
  static const host::Plugin plugin(PLUGIN_FILE);
  Lines candidate = running;
  candidate.insert(candidate.end(), added.begin(), added.end());
  const auto transaction = element::make_transaction(tree_of(running), tree_of(candidate), profile);
  const host::Verdict verdict = host::validate_commit(plugin, seam, *transaction);
  return diagnosis::diagnose(plugin, seam, *transaction, verdict, {.all_faults = true, .budget = {}, .progress = {}});
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
  const Diagnosis found = diagnose({attachment("east", "ge-1", "100")}, {attachment("west", "ge-1", "100")});
  EXPECT_EQ(messages(found), (Lines{same_dot1q("west", "east", "ge-1")}));
  EXPECT_TRUE(found.complete);
}

TEST(Diagnose, a_fault_in_force_is_told_once_however_many_changes_make_the_library_look) {
  const Lines running{attachment("east", "ge-1", "100"), attachment("west", "ge-1", "100")};
  const Diagnosis found = diagnose(
      running, {attachment("north", "ge-2", "1"), attachment("south", "ge-2", "2"), attachment("centre", "ge-3", "3")});
  EXPECT_EQ(messages(found), (Lines{same_dot1q("west", "east", "ge-1") + " (in force)"}));
  EXPECT_TRUE(found.complete);
}

TEST(Diagnose, faults_of_the_commit_are_found_beside_one_in_force_and_with_either_of_its_parties) {
  const Lines running{attachment("east", "ge-1", "100"), attachment("west", "ge-1", "100"),
                      attachment("east", "ge-2", "200"), attachment("west", "ge-3", "300")};
  const Diagnosis found = diagnose(running, {attachment("north", "ge-2", "200"), attachment("south", "ge-3", "300"),
                                             attachment("one", "ge-2", "7"), attachment("two", "ge-2", "7")});
  Lines all = messages(found);
  std::sort(all.begin(), all.end());
  Lines expected{same_dot1q("west", "east", "ge-1") + " (in force)", same_dot1q("north", "east", "ge-2"),
                 same_dot1q("west", "south", "ge-3"), same_dot1q("two", "one", "ge-2")};
  std::sort(expected.begin(), expected.end());
  EXPECT_EQ(all, expected);
}

TEST(Diagnose, two_faults_in_force_are_two) {
  const Lines running{attachment("east", "ge-1", "100"), attachment("west", "ge-1", "100"),
                      attachment("north", "ge-2", "100"), attachment("south", "ge-2", "100")};
  Lines all = messages(diagnose(running, {attachment("one", "ge-3", "7"), attachment("two", "ge-3", "8")}));
  std::sort(all.begin(), all.end());
  EXPECT_EQ(all, (Lines{same_dot1q("south", "north", "ge-2") + " (in force)",
                        same_dot1q("west", "east", "ge-1") + " (in force)"}));
}

}  // namespace
