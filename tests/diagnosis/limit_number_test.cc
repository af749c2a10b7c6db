// How many of a limit's parties are too many, where other conflicts that they have with each other hide the limit.

#include <gtest/gtest.h>

#include "tests/diagnosis/judged_element.h"
#include "tests/diagnosis/random_commits.h"
#include "tests/diagnosis/shorthand.h"

namespace {

using brute_force::Configurations;
using diagnosis::Finding;

/// The VLANs in ranges that the element allows.
constexpr std::size_t kAllowed = JudgedElement::kEncapsulationVlanLimit;

/// The calls are enough for the findings, and not for all the advice.
Finding vlan_limit(const Configurations &commit) {
  const diagnosis::Budget budget{.calls = 1000, .time = ample().time};
  const diagnosis::Diagnosis found =
      JudgedElement::instance().diagnose(commit, {.with_repairs = false, .budget = budget, .enumerated_sets = 0});
  EXPECT_EQ(found.unproven_rules, std::vector<std::string>());
  for (const Finding &finding : found.findings) {
    if (finding.rule == "encapsulation-vlan-limit") return finding;
  }
  throw std::logic_error("no limit was found");
}

/// Attachments of four new VPNs with a VLAN each as a range, on five ports in turn; the last takes that of the first.
Configurations with_ranges(std::size_t number, bool has_pair_at_odds) {
  const std::vector<std::string> ports{"eth1", "eth2", "eth3", "service-port-1", "service-port-2"};
  std::vector<std::string> lines;
  for (std::size_t i = 0; i < number; ++i) {
    const std::string vlan = std::to_string(has_pair_at_odds && i == number - 1 ? i % 5 + 1 : i + 1);
    lines.push_back("vpws g v" + std::to_string(i / 5) + " " + ports[i % 5] + " range " + vlan + "-" + vlan);
  }
  return shorthand::commit_of({}, {}, lines);
}

TEST(LimitNumber, two_that_hide_the_limit_are_too_many_by_one_less) {
  const Finding finding = vlan_limit(with_ranges(kAllowed + 2, true));
  EXPECT_EQ(finding.parties.size(), kAllowed + 2);
  EXPECT_EQ(finding.enough, 1u);
  EXPECT_EQ(finding.enough_at_most, 0u);
}

TEST(LimitNumber, of_parties_that_agree_it_is_told_by_their_weights) {
  const Finding finding = vlan_limit(with_ranges(kAllowed + 15, false));
  EXPECT_EQ(finding.enough, 15u);
  EXPECT_EQ(finding.enough_at_most, 0u);
}

// 6 are enough of those that agree: four of them and the pair are left, which is never drawn together.
TEST(LimitNumber, of_many_parties_two_of_which_hide_the_limit_least_and_most_are_told) {
  const Finding finding = vlan_limit(with_ranges(kAllowed + 7, true));
  EXPECT_EQ(finding.parties.size(), kAllowed + 7);
  EXPECT_EQ(finding.enough, 6u);
  EXPECT_EQ(finding.enough_at_most, 7u);
}

}  // namespace
