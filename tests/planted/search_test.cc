// Commits that a search for what draws a message could take for something else.

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "tests/planted/judged_element.h"

namespace planted {
namespace {

using diagnosis::Diagnosis;
using diagnosis::Fault;
using diagnosis::Standing;

const std::string vpls = "/mpls/l2vpn-config/l2vpn/vpls-group{campus}";
const std::string vpws = "/mpls/l2vpn-config/l2vpn/vpws-group{branches}";
const std::string port = "gigabit-ethernet-1/1/1";

Diagnosis found_in(const Draft &draft, bool all_faults) {
  JudgedElement &element = JudgedElement::instance();
  return element.diagnose(*element.transaction(draft), {.all_faults = all_faults, .budget = {}, .progress = {}});
}

char sign_of(Standing standing) { return " +~-"[static_cast<std::size_t>(standing)]; }

/// A line each: "+ PATH" added, "~ PATH" changed, "- PATH" removed, "  PATH" unchanged; a party's details behind it.
Lines parties_of(const Fault &fault) {
  Lines lines;
  for (const diagnosis::Party &party : fault.parties) {
    lines.push_back(fmt::format("{} {}", sign_of(party.standing), to_text(party.path)));
    for (const diagnosis::Detail &detail : party.details) {
      const std::string path = to_text(detail.path);
      lines.back() += fmt::format(" {}{}", sign_of(detail.standing), path.substr(path.rfind('/') + 1));
    }
  }
  return lines;
}

Lines texts_of(const Diagnosis &diagnosis) {
  Lines texts;
  for (const Fault &fault : diagnosis.faults) texts.push_back(fault.verdict.text);
  return texts;
}

/// Puts ranges of three VLANs on an interface, beginning at `first`.
void put_ranges(Draft &draft, const Vpn &vpn, const std::string &interface, int count, std::uint16_t first,
                Arrival arrival) {
  for (int i = 0; i < count; ++i) {
    put(draft, range_line(vpn, interface, first, static_cast<std::uint16_t>(first + 2)), arrival);
    first = static_cast<std::uint16_t>(first + 10);
  }
}

long ranges_to_take_back(const Fault &fault) {
  if (fault.enough != 0) return static_cast<long>(fault.enough);
  return std::count_if(fault.change.begin(), fault.change.end(),
                       [](const auto &part) { return part.path.back().schema->name == "dot1q-range"; });
}

// Both VPNs get a service port, one of them with the service that it needs. The message names neither.
TEST(Search, what_another_part_of_the_commit_mends_is_not_blamed) {
  const std::string text = "To use a service-port as access interface, transparent-lan-service must be enabled";
  for (const auto &[mended, broken] : {std::pair("v1", "v2"), std::pair("v2", "v1")}) {
    const auto bridge_domain = [](const std::string &vpn) { return vpls + "/vpn{" + vpn + "}/bridge-domain"; };
    Draft draft;
    for (const char *vpn : {"v1", "v2"}) {
      draft.both({bridge_domain(vpn) + "/dot1q = 100", bridge_domain(vpn) + "/bridge-mtu = 1500"});
      put(draft, bridge_domain(vpn) + "/access-interface{service-port-" + vpn[1] + "}", Arrival::added);
    }
    draft.candidate.push_back(bridge_domain(mended) + "/transparent-lan-service");
    for (const bool all_faults : {false, true}) {
      const Diagnosis diagnosis = found_in(draft, all_faults);
      ASSERT_EQ(texts_of(diagnosis), Lines{text});
      EXPECT_EQ(
          parties_of(diagnosis.faults[0]),
          (Lines{"+ " + bridge_domain(broken) + "/access-interface{service-port-" + broken[1] + "}  bridge-mtu"}));
    }
  }
}

TEST(Search, a_party_is_shown_with_what_the_commit_takes_away_from_it) {
  Draft draft;
  draft.both(vpws + "/vpn{a}/access-interface{" + port + "}");
  draft.running.push_back(vpws + "/vpn{a}/access-interface{" + port + "}/dot1q = 100");
  draft.candidate.push_back(vpws + "/vpn{b}/access-interface{" + port + "}");
  const Diagnosis diagnosis = found_in(draft, false);
  ASSERT_EQ(texts_of(diagnosis),
            (Lines{"vpws-group branches vpn b & vpws-group branches vpn a must not be configured to "
                   "the same interface " +
                   port + " on port-based VPNs"}));
  EXPECT_EQ(parties_of(diagnosis.faults[0]), (Lines{"~ " + vpws + "/vpn{a}/access-interface{" + port + "} -dot1q",
                                                    "+ " + vpws + "/vpn{b}/access-interface{" + port + "}"}));
}

// The message comes also while the neighbour is still there; but the commit removes it.
TEST(Search, a_party_stands_as_the_commit_leaves_it) {
  Draft draft;
  draft.running.push_back(vpws + "/vpn{a}/neighbor{192.0.2.1}/pw-id = 7");
  draft.candidate.push_back(vpws + "/vpn{a}/backup-neighbor{192.0.2.1}/pw-id = 7");
  const Diagnosis diagnosis = found_in(draft, false);
  ASSERT_EQ(diagnosis.faults.size(), 1u);
  EXPECT_EQ(parties_of(diagnosis.faults[0]), (Lines{"- " + vpws + "/vpn{a}/neighbor{192.0.2.1} -pw-id",
                                                    "+ " + vpws + "/vpn{a}/backup-neighbor{192.0.2.1} +pw-id"}));
}

// The message tells the ninth range and no more.
TEST(Search, ranges_too_many_on_an_interface_are_one_fault_however_many_they_are) {
  const std::string text = "Maximum number of VLAN ranges configured for access-interface " + port +
                           " on VPN Selective Encapsulation has been exceeded. Attempt to configure 9 of 8 allowed";
  const Vpn one{Family::vpws, "branches", "a"};
  const Vpn other{Family::vpls, "campus", "b"};
  for (const int standing : {0, 4, 8}) {
    Draft draft;
    put_ranges(draft, one, port, standing, 100, Arrival::stands);
    put_ranges(draft, one, port, 7, 300, Arrival::added);
    put_ranges(draft, other, port, 5, 500, Arrival::added);
    for (const bool all_faults : {false, true}) {
      const Diagnosis diagnosis = found_in(draft, all_faults);
      ASSERT_EQ(texts_of(diagnosis), Lines{text}) << standing;
      EXPECT_EQ(ranges_to_take_back(diagnosis.faults[0]), standing + 4);
    }
  }
}

TEST(Search, two_vpns_with_too_many_access_interfaces_are_two_faults) {
  Draft draft;
  for (const char *vpn : {"a", "b"}) {
    const std::string bridge_domain = vpls + "/vpn{" + vpn + "}/bridge-domain";
    draft.both(fmt::format("{}/dot1q = {}", bridge_domain, 100 + vpn[0]));
    for (int i = 1; i <= 8; ++i) {
      put(draft, fmt::format("{}/access-interface{{gigabit-ethernet-1/1/{}}}", bridge_domain, i),
          i <= 4 ? Arrival::stands : Arrival::added);
    }
  }
  const Diagnosis diagnosis = found_in(draft, true);
  const std::string text = "Maximum number of access-interfaces has been exceeded. Attempt to configure 8 of 6 allowed";
  ASSERT_EQ(texts_of(diagnosis), (Lines{text, text}));
  for (std::size_t i = 0; i < 2; ++i) {
    EXPECT_EQ(diagnosis.faults[i].enough, 2u);
    EXPECT_EQ(diagnosis.faults[i].change.size(), 4u);
    EXPECT_EQ(diagnosis.faults[i].parties.size(), 8u);
    EXPECT_EQ(diagnosis.faults[i].parties[0].vpn, diagnosis.faults[i].parties[7].vpn);
  }
}

// The port's members are fine beside ranges. Were an attachment left without the range that it came with, to keep the
// limit, it would take the port whole, and be refused for that.
TEST(Search, what_is_left_out_for_a_limit_draws_nothing_of_its_own) {
  Draft draft;
  for (std::uint32_t i = 0; i <= kEncapsulationRangeLimit; ++i) {
    const std::string interface = fmt::format("gigabit-ethernet-1/1/{}", 1 + i);
    const Vpn vpn{Family::vpws, "branches", fmt::format("v{:03}", i)};
    draft.both(fmt::format("/config/vlan{{4000}}/interface{{{}}}", interface));
    put_ranges(draft, vpn, interface, 1, 100, Arrival::added);
  }
  const Diagnosis diagnosis = found_in(draft, true);
  EXPECT_EQ(texts_of(diagnosis),
            (Lines{"Maximum number of VLAN ranges on VPN Selective Encapsulation has been exceeded. "
                   "Attempt to configure 91 of 90 allowed"}));
}

}  // namespace
}  // namespace planted
