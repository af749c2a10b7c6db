#include "config_validate_comn/config_validate_comn.h"
#include "tests/unit/access_test.h"

namespace {

const Calls kReadsLimits{"fm_init", "fm_local_slot", "fm_scalar_card_selective_encapsulation_max_vlan_entries",
                         "fm_scalar_card_selective_encapsulation_max_vlan_ranges"};

struct Attachment {
  const char *vpn;
  const char *interface;
  vlan_cfg_type_t source;
  Ranges ranges;
};

struct LimitCase {
  const char *name;
  std::vector<Attachment> attachments;
  std::optional<std::uint32_t> max_entries;
  std::optional<std::uint32_t> max_ranges;
  std::string message;  ///< empty: accepted
};

void PrintTo(const LimitCase &row, std::ostream *out) { *out << row.name; }

std::string too_many_on(const std::string &interface) {
  return "Maximum number of VLAN ranges configured for access-interface " + interface +
         " on VPN Selective Encapsulation has been exceeded. Attempt to configure 9 of 8 allowed";
}

std::string too_many_vlans(const std::string &numbers) {
  return "Maximum number of VLANs on VPN Selective Encapsulation has been exceeded. Attempt to configure " + numbers +
         " allowed";
}

std::string too_many_ranges(const std::string &numbers) {
  return "Maximum number of VLAN ranges on VPN Selective Encapsulation has been exceeded. Attempt to configure " +
         numbers + " allowed";
}

/// n ranges of two VLANs each, from this VLAN on.
Ranges pairs(std::uint32_t n, std::uint32_t from = 100) {
  Ranges ranges;
  for (std::uint32_t i = 0; i < n; ++i) ranges.emplace_back(from + 10 * i, from + 10 * i + 1);
  return ranges;
}

const std::vector<LimitCase> limit_cases{
    {"entries at the card's limit", {{"red", "eth-1", VLAN_CFG_ENCAP, {{10, 10}, {20, 20}}}}, 2, 0, ""},
    {"entries above it", {{"red", "eth-1", VLAN_CFG_ENCAP, {{10, 10}, {20, 20}}}}, 1, 0, too_many_vlans("2 of 1")},
    {"ranges at the card's limit", {{"red", "eth-1", VLAN_CFG_ENCAP, pairs(2)}}, 2, 2, ""},
    {"ranges above it", {{"red", "eth-1", VLAN_CFG_ENCAP, pairs(2)}}, 2, 1, too_many_ranges("2 of 1")},
    {"both above: entries are told", {{"red", "eth-1", VLAN_CFG_ENCAP, pairs(2)}}, 1, 1, too_many_vlans("2 of 1")},
    {"a range from a VLAN to itself is no range", {{"red", "eth-1", VLAN_CFG_ENCAP, {{10, 10}}}}, 1, 0, ""},
    {"a wide range is one entry and one range", {{"red", "eth-1", VLAN_CFG_ENCAP, {{1, 4094}}}}, 1, 1, ""},
    {"untagged is no entry", {{"red", "eth-1", VLAN_CFG_ENCAP, {{0, 0}}}}, 0, 0, ""},
    {"nor is a range from 0", {{"red", "eth-1", VLAN_CFG_ENCAP, {{0, 9}}}}, 0, 0, ""},
    {"nor is a range to 0", {{"red", "eth-1", VLAN_CFG_ENCAP, {{9, 0}}}}, 0, 0, ""},
    {"interfaces add up",
     {{"red", "eth-1", VLAN_CFG_ENCAP, pairs(5)}, {"red", "eth-2", VLAN_CFG_ENCAP, pairs(5)}},
     10,
     9,
     too_many_ranges("10 of 9")},
    {"an attachment without encapsulation is not counted",
     {{"red", "eth-1", VLAN_CFG_ENCAP, {{10, 10}}}, {"blue", "eth-1", VLAN_CFG_BASIC, {{20, 20}, {30, 40}}}},
     1,
     0,
     ""},
    {"eight ranges on an interface", {{"red", "eth-1", VLAN_CFG_ENCAP, pairs(8)}}, 100, 100, ""},
    {"nine ranges on an interface", {{"red", "eth-1", VLAN_CFG_ENCAP, pairs(9)}}, 100, 100, too_many_on("eth-1")},
    {"twelve are told as the ninth", {{"red", "eth-1", VLAN_CFG_ENCAP, pairs(12)}}, 100, 100, too_many_on("eth-1")},
    {"single VLANs are no ranges of an interface",
     {{"red", "eth-1", VLAN_CFG_ENCAP, {{1, 1}, {2, 2}, {3, 3}, {4, 4}, {5, 5}, {6, 6}, {7, 7}, {8, 8}, {9, 9}}}},
     9,
     0,
     ""},
    {"an interface's VPNs add up",
     {{"red", "eth-1", VLAN_CFG_ENCAP, pairs(5)}, {"blue", "eth-1", VLAN_CFG_ENCAP, pairs(4, 1000)}},
     100,
     100,
     too_many_on("eth-1")},
    {"the first interface by name is told",
     {{"red", "eth-2", VLAN_CFG_ENCAP, pairs(9)}, {"red", "eth-1", VLAN_CFG_ENCAP, pairs(9)}},
     100,
     100,
     too_many_on("eth-1")},
    {"the interface's limit comes before the card's",
     {{"red", "eth-1", VLAN_CFG_ENCAP, pairs(9)}},
     0,
     0,
     too_many_on("eth-1")},
    {"unread entries limit", {{"red", "eth-1", VLAN_CFG_ENCAP, {{10, 10}}}}, {}, 9, too_many_vlans("1 of 0")},
    {"unread ranges limit", {{"red", "eth-1", VLAN_CFG_ENCAP, {{10, 11}}}}, 9, {}, too_many_ranges("1 of 0")},
    {"a limit beyond the signed numbers is negative",
     {{"red", "eth-1", VLAN_CFG_ENCAP, {{0, 0}}}},
     0xFFFFFFFF,
     0,
     too_many_vlans("0 of -1")},
    {"the largest signed limit", {{"red", "eth-1", VLAN_CFG_ENCAP, {{10, 10}}}}, 0x7FFFFFFF, 0, ""},
};

class SelectiveEncapsulationLimitTest : public AccessTest, public ::testing::WithParamInterface<LimitCase> {};

TEST_P(SelectiveEncapsulationLimitTest, counts_vlans_and_ranges) {
  const LimitCase &row = GetParam();
  for (const Attachment &one : row.attachments) {
    for (const auto &[first, last] : one.ranges) {
      record("vpls-group north", std::string("vpn ") + one.vpn, one.interface, one.source, {first, last});
    }
  }
  platform.limits.encapsulation_entries = row.max_entries;
  platform.limits.encapsulation_ranges = row.max_ranges;

  EXPECT_EQ(config_validate_select_encap_limit(sock(), tctx(), snapshot), row.message.empty() ? 0 : -1);
  EXPECT_EQ(platform.error(), row.message);
  EXPECT_EQ(platform.errors().size(), row.message.empty() ? 0U : 1U);

  const bool stops_before_the_card = row.message.find("access-interface") != std::string::npos;
  Calls calls = stops_before_the_card ? Calls{} : kReadsLimits;
  if (!row.message.empty()) calls.push_back("confd_trans_seterr " + row.message);
  EXPECT_EQ(platform.calls(), calls);
}

INSTANTIATE_TEST_SUITE_P(Limits, SelectiveEncapsulationLimitTest, ::testing::ValuesIn(limit_cases));

TEST_F(AccessTest, without_any_encapsulation_the_card_is_not_asked_for_its_selective_encapsulation) {
  for (std::uint32_t i = 0; i < 20; ++i) record("vpls-group north", "vpn red", "eth-1", VLAN_CFG_BASIC, {10 + i, 900});
  EXPECT_EQ(config_validate_select_encap_limit(sock(), tctx(), snapshot), 0);
  EXPECT_EQ(platform.calls(), Calls{});
}

struct CardFaultCase {
  const char *function;
  std::string message;  ///< empty: the status is not looked at and the limits are there
};

const std::vector<CardFaultCase> card_fault_cases{
    {"fm_init", ""},
    {"fm_local_slot", too_many_vlans("1 of 0")},
    {"fm_scalar_card_selective_encapsulation_max_vlan_entries", too_many_vlans("1 of 0")},
    {"fm_scalar_card_selective_encapsulation_max_vlan_ranges", too_many_ranges("1 of 0")},
};

TEST_F(AccessTest, a_failed_read_of_the_card_leaves_a_limit_of_zero) {
  platform.limits.encapsulation_entries = 10;
  platform.limits.encapsulation_ranges = 10;
  record("vpls-group north", "vpn red", "eth-1", VLAN_CFG_ENCAP, {10, 20});
  for (const CardFaultCase &row : card_fault_cases) {
    SCOPED_TRACE(row.function);
    fail_only(row.function, 1);
    EXPECT_EQ(config_validate_select_encap_limit(sock(), tctx(), snapshot), row.message.empty() ? 0 : -1);
    if (!row.message.empty()) {
      EXPECT_EQ(platform.error(), row.message);
    }
    EXPECT_EQ(calls_of({kReadsLimits.begin(), kReadsLimits.end()}), kReadsLimits);
  }
}

}  // namespace
