// Commits with the values that may be changed in them.

#include <fmt/format.h>
#include <fmt/ranges.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "tests/diagnosis/judged_element.h"
#include "tests/diagnosis/random_commits.h"
#include "tests/diagnosis/shorthand.h"

namespace {

struct RepairedCommit {
  using Lines = std::vector<std::string>;

  std::string name;
  Lines both;
  Lines removed;
  Lines added;
  Lines repairs;  ///< "PATH: VALUE, VALUE", of all findings
};

void PrintTo(const RepairedCommit &commit, std::ostream *out) { *out << commit.name; }

std::vector<std::string> short_repairs(const diagnosis::Diagnosis &diagnosis) {
  std::vector<std::string> lines;
  for (const diagnosis::Finding &finding : diagnosis.findings) {
    for (const diagnosis::Repair &repair : finding.repairs) {
      const std::string values = fmt::format("{}", fmt::join(repair.values, ", "));
      const std::string where = repair.on_all_ports ? " on all ports" : "";
      lines.push_back(repair.path.empty() ? values + " commits"
                                          : shorthand::short_path(to_text(repair.path)) + ": " + values + where);
    }
  }
  std::sort(lines.begin(), lines.end());
  return lines;
}

class Repairs : public testing::TestWithParam<RepairedCommit> {
 protected:
  diagnosis::Diagnosis diagnosed(diagnosis::Options options) const {
    const RepairedCommit &row = GetParam();
    return JudgedElement::instance().diagnose(shorthand::commit_of(row.both, row.removed, row.added), options);
  }
};

TEST_P(Repairs, are_told) {
  const diagnosis::Diagnosis found = diagnosed({});
  EXPECT_EQ(short_repairs(found), GetParam().repairs);
  EXPECT_TRUE(found.has_all_repairs);
  EXPECT_EQ(found.end, diagnosis::SearchEnd::complete);
}

TEST_P(Repairs, keep_to_the_budget) {
  const diagnosis::Diagnosis without = diagnosed({.with_repairs = false, .budget = ample()});
  const diagnosis::Diagnosis all = diagnosed({});
  for (std::uint64_t calls = without.calls + 1; calls < all.calls; ++calls) {
    const diagnosis::Diagnosis some = diagnosed({.budget = {.calls = calls, .time = std::chrono::hours(24)}});
    EXPECT_LE(some.calls, calls);
    EXPECT_EQ(some.end, diagnosis::SearchEnd::complete);
    const std::vector<std::string> told = short_repairs(some);
    EXPECT_TRUE(!some.has_all_repairs || told == GetParam().repairs);
    EXPECT_LE(told.size(), GetParam().repairs.size());
  }
}

std::string case_name(const testing::TestParamInfo<RepairedCommit> &info) { return info.param.name; }

INSTANTIATE_TEST_SUITE_P(
    Vlans, Repairs,
    testing::ValuesIn(std::vector<RepairedCommit>{
        {"vlan_in_force", {"vpws g a eth1 vlan 7"}, {}, {"vpws g b eth1 vlan 7"}, {"vpws g b eth1 dot1q: 8, 6, 9"}},
        {"two_new_ones",
         {},
         {},
         {"vpws g a eth1 vlan 7", "vpws g b eth1 vlan 7"},
         {"vpws g a eth1 dot1q: 8, 6, 9", "vpws g b eth1 dot1q: 8, 6, 9"}},
        {"what_is_near_is_taken",
         {"vpws g a eth1 vlan 7", "vpws g c eth1 vlan 8", "member 6 eth1"},
         {},
         {"vpws g b eth1 vlan 7"},
         {"vpws g b eth1 dot1q: 9, 5, 10"}},
        {"first_vlan", {"vpws g a eth1 vlan 1"}, {}, {"vpws g b eth1 vlan 1"}, {"vpws g b eth1 dot1q: 2, 3, 4"}},
        {"range_over_a_vlan",
         {"vpws g a eth1 vlan 2"},
         {},
         {"vpls g b eth1 range 1-3"},
         {"vpls g b eth1 1 3: 4-6, 7-9, 10-12"}},
        {"one_of_two_ranges",
         {"vpws g a eth1 vlan 6"},
         {},
         {"vpws g b eth1 range 2-2,6-6"},
         {"vpws g b eth1 6 6: 7-7, 5-5, 8-8"}},
        {"static_member", {"member 7 eth1"}, {}, {"vpws g b eth1 vlan 7"}, {"vpws g b eth1 dot1q: 8, 6, 9"}},
        {"member_not_onto_an_uplink",
         {"vpws g b eth1 vlan 7", "uplink up 8"},
         {},
         {"member 7 eth1"},
         {"member 7 eth1: 6, 9"}},
        {"changed_in_place",
         {"vpws g a eth1 vlan 7"},
         {"vpws g b eth1 vlan 9"},
         {"vpws g b eth1 vlan 7"},
         {"vpws g b eth1 dot1q: 8, 6, 9"}},
        {"freed_and_taken_by_two",
         {},
         {"vpws g a eth1 vlan 7"},
         {"vpws g b eth1 vlan 7", "vpws g c eth1 vlan 7"},
         {"vpws g b eth1 dot1q: 8, 6, 9", "vpws g c eth1 dot1q: 8, 6, 9"}},
        {"bridge_domain_of_two_ports",
         {"vpws g a eth1 vlan 7", "vpws g c eth2 vlan 8"},
         {},
         {"vpls g b dot1q 7", "vpls g b eth1 whole", "vpls g b eth2 whole"},
         {"vpls g b dot1q: 6, 9, 5 on all ports"}},
        {"bridge_domain_in_force_stays",
         {"vpls g b dot1q 7", "vpls g b eth2 whole", "vpws g a eth1 vlan 7"},
         {},
         {"vpls g b eth1 whole"},
         {}},
        {"untagged_frames", {"vpls g a eth1 untagged"}, {}, {"vpls g b eth1 untagged"}, {}},
        {"three_take_one", {}, {}, {"vpws g a eth1 vlan 7", "vpws g b eth1 vlan 7", "vpws g c eth1 vlan 7"}, {}},
        {"whole_port", {"vpws g a eth1 whole"}, {}, {"vpws g b eth1 whole"}, {}},
        {"port_is_full", {"vpws g a eth1 range 1-4094"}, {}, {"vpws g b eth1 vlan 7"}, {}},
        {"no_room_for_the_range", {"vpws g a eth1 vlan 2000"}, {}, {"vpws g b eth1 range 1-4000"}, {}},
        {"static_member_is_added", {"vpws g a eth1 vlan 7"}, {}, {"member 7 eth1"}, {"member 7 eth1: 8, 6, 9"}},
        {"limit", {"vpws g a", "vpws g b"}, {}, {"vpws g c", "vpls g d", "vpls g e"}, {}},
    }),
    case_name);

INSTANTIATE_TEST_SUITE_P(PwIds, Repairs,
                         testing::ValuesIn(std::vector<RepairedCommit>{
                             {"used_in_force",
                              {"vpws g a neighbor 192.0.2.1 10"},
                              {},
                              {"vpws g b neighbor 192.0.2.1 10"},
                              {"vpws g b neighbor 192.0.2.1 pw-id: 11, 9, 12"}},
                             {"what_is_near_is_used",
                              {"vpws g a neighbor 192.0.2.1 10", "vpls g c neighbor 192.0.2.1 11"},
                              {"vpws g d backup-neighbor 192.0.2.1 9"},
                              {"vpws g b backup-neighbor 192.0.2.1 10"},
                              {"vpws g b backup-neighbor 192.0.2.1 pw-id: 12, 8, 13"}},
                             {"moved_to_another_vpn",
                              {"vpws g a", "vpws g b"},
                              {"vpws g a neighbor 192.0.2.1 10"},
                              {"vpws g b neighbor 192.0.2.1 10"},
                              {"2 commits", "vpws g b neighbor 192.0.2.1 pw-id: 11, 9, 12"}},
                             {"swapped",
                              {},
                              {"vpws g a neighbor 192.0.2.1 10", "vpws g b neighbor 192.0.2.1 20"},
                              {"vpws g a neighbor 192.0.2.1 20", "vpws g b neighbor 192.0.2.1 10"},
                              {"2 commits"}},
                             {"moved_beside_another_fault",
                              {"vpws g a eth1 vlan 7", "vpws g b"},
                              {"vpws g a neighbor 192.0.2.1 10"},
                              {"vpws g b neighbor 192.0.2.1 10", "vpws g b eth1 vlan 7"},
                              {"vpws g b eth1 dot1q: 8, 6, 9", "vpws g b neighbor 192.0.2.1 pw-id: 11, 9, 12"}},
                         }),
                         case_name);

INSTANTIATE_TEST_SUITE_P(Names, Repairs,
                         testing::ValuesIn(std::vector<RepairedCommit>{
                             {"one_letter", {}, {}, {"vpls g b eth4 whole"}, {"vpls g b eth4: eth1, eth2, eth3"}},
                             {"two_letters_swapped", {}, {}, {"vpls g b eht1 whole"}, {"vpls g b eht1: eth1"}},
                             {"capital_letters", {}, {}, {"vpws g b ETH2 vlan 7"}, {"vpws g b ETH2: eth2"}},
                             {"taken_ports",
                              {"vpls g a eth1 whole"},
                              {},
                              {"vpls g b eth4 whole", "vpls g b eth2 whole"},
                              {"vpls g b eth4: eth3"}},
                             {"nothing_alike", {}, {}, {"vpls g b port9 whole"}, {}},
                             {"in_force", {"vpls g b eth4 whole"}, {}, {"vpls g b dot1q 5"}, {}},
                         }),
                         case_name);

}  // namespace
