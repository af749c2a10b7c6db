#include <gtest/gtest.h>

#include "config_validate_vpws/config_validate_vpws.h"
#include "tests/support/broken_model.h"
#include "tests/support/printers.h"

namespace {

using scripted::text;
using scripted::u32;
using scripted::Values;
using Calls = std::vector<std::string>;
using Texts = std::vector<std::string>;

constexpr const char *kGroups = "/internal/int-vpws-group";

std::string vpns_of(const std::string &group) { return "/internal/int-vpws-group{" + group + "}/int-vpws"; }

const std::string kInvalid =
    " contains invalid characters (allowed characters: 0-9, a-z, A-Z, _, -, @, <>, &, =, :, ., (), +)";

class VpwsNamesTest : public scripted::PlatformTest {
 protected:
  void configure(const std::map<std::string, std::vector<std::string>> &vpns_by_group) {
    std::vector<Values> groups;
    std::uint32_t id = 0;
    for (const auto &[group, vpns] : vpns_by_group) {
      groups.push_back({text(group)});
      std::vector<Values> rows;
      for (const std::string &vpn : vpns) rows.push_back({text(vpn), u32(++id)});
      platform.list("/internal/int-vpws-group{\"" + group + "\"}/int-vpws", 2, rows);
    }
    platform.list(kGroups, 1, groups);
  }

  /// So many VPNs of one group, in list order; the last one's name as given.
  void configure_many(std::uint32_t count, const std::string &last) {
    std::vector<std::string> vpns;
    for (std::uint32_t i = 1; i < count; ++i) vpns.push_back("a" + std::to_string(1000 + i));
    if (count != 0) vpns.push_back(last);
    configure({{"north", vpns}});
  }

  std::int32_t verdict() {
    return config_validate_vpws_group_name(platform.socket(), &platform.context(), nullptr, nullptr);
  }

  std::int32_t vpn_verdict(const std::string &group) {
    return config_validate_vpws_vpn_name(platform.socket(), &platform.context(), group);
  }

  std::uint32_t id_of(const std::string &group, const std::string &vpn) {
    return get_int_vpws_id(platform.socket(), &platform.context(), group, vpn);
  }
};

const std::vector<std::string> valid_names{"",
                                           "north",
                                           "NORTH",
                                           "0123456789",
                                           "abcdefghijklmnopqrstuvwxyz",
                                           "ABCDEFGHIJKLMNOPQRSTUVWXYZ",
                                           "-_@<>&=:.+()",
                                           "<a>&b=c:d.e+(f)"};

const std::vector<std::string> invalid_names{"grp 1", " ",   "a/b", "a,b",           "a;b",      "a*b", "a\tb", "a'b",
                                             "a!b",   "a#b", "a$b", "a%b",           "a?b",      "a[b", "a]b",  "a^b",
                                             "a`b",   "a|b", "a~b", "Z\xc3\xbcrich", "last\x7f", "\x80"};

TEST_F(VpwsNamesTest, accepts_names_of_allowed_characters) {
  for (const std::string &name : valid_names) {
    SCOPED_TRACE(name);
    configure({{name, {name}}});
    EXPECT_EQ(verdict(), 0);
  }
  EXPECT_EQ(platform.errors(), Texts{});
}

TEST_F(VpwsNamesTest, rejects_a_group_name_with_any_other_character) {
  for (const std::string &name : invalid_names) {
    SCOPED_TRACE(name);
    configure({{name, {"east"}}});
    EXPECT_EQ(verdict(), -1);
    EXPECT_EQ(platform.error(), "VPWS Group name " + name + kInvalid);
  }
}

TEST_F(VpwsNamesTest, rejects_a_vpn_name_with_any_other_character) {
  for (const std::string &name : invalid_names) {
    SCOPED_TRACE(name);
    configure({{"north", {name}}});
    EXPECT_EQ(verdict(), -1);
    EXPECT_EQ(platform.error(), "VPWS Group name north VPN name " + name + kInvalid);
  }
}

TEST_F(VpwsNamesTest, accepts_and_rejects_each_character_by_itself) {
  const std::string allowed = "0123456789abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ-_@<>&=:.+()";
  ASSERT_EQ(allowed.size(), 74U);
  for (int code = 1; code < 256; ++code) {
    const std::string name(1, static_cast<char>(code));
    SCOPED_TRACE(code);
    platform.list(vpns_of("north"), 2, {{text(name), u32(1)}});
    EXPECT_EQ(vpn_verdict("north"), allowed.find(name) == std::string::npos ? -1 : 0);
  }
}

TEST_F(VpwsNamesTest, an_invalid_groups_vpns_are_not_read) {
  configure({{"grp 1", {"a b"}}});
  EXPECT_EQ(verdict(), -1);
  EXPECT_EQ(platform.errors(), Texts{"VPWS Group name grp 1" + kInvalid});
  EXPECT_EQ(
      platform.calls(),
      (Calls{"maapi_init_cursor /internal/int-vpws-group", "maapi_get_next /internal/int-vpws-group",
             "confd_trans_seterr VPWS Group name grp 1" + kInvalid, "maapi_destroy_cursor /internal/int-vpws-group"}));
}

TEST_F(VpwsNamesTest, a_groups_vpns_are_checked_before_the_next_group) {
  configure({{"A", {"a b"}}, {"B B", {"east"}}});
  EXPECT_EQ(verdict(), -1);
  EXPECT_EQ(platform.errors(), Texts{"VPWS Group name A VPN name a b" + kInvalid});

  configure({{"A", {"a"}}, {"B B", {"east"}}});
  EXPECT_EQ(verdict(), -1);
  EXPECT_EQ(platform.error(), "VPWS Group name B B" + kInvalid);
}

TEST_F(VpwsNamesTest, the_first_invalid_vpn_ends_the_check_and_the_whole_batch_is_freed) {
  configure({{"north", {"a", "b b", "c c", "d"}}, {"south", {"e"}}});
  EXPECT_EQ(verdict(), -1);
  EXPECT_EQ(platform.errors(), Texts{"VPWS Group name north VPN name b b" + kInvalid});
  EXPECT_EQ(platform.count("confd_free_value"), 4U);
  EXPECT_EQ(platform.calls(),
            (Calls{"maapi_init_cursor /internal/int-vpws-group", "maapi_get_next /internal/int-vpws-group",
                   "maapi_init_cursor /internal/int-vpws-group{north}/int-vpws",
                   "maapi_get_objects /internal/int-vpws-group{north}/int-vpws 64x2",
                   "confd_trans_seterr VPWS Group name north VPN name b b" + kInvalid,
                   "maapi_destroy_cursor /internal/int-vpws-group{north}/int-vpws",
                   "maapi_destroy_cursor /internal/int-vpws-group"}));
}

TEST_F(VpwsNamesTest, reads_every_group_and_its_vpns_in_list_order) {
  configure({{"A", {"a"}}, {"B", {}}});
  EXPECT_EQ(verdict(), 0);
  EXPECT_EQ(platform.calls(),
            (Calls{"maapi_init_cursor /internal/int-vpws-group", "maapi_get_next /internal/int-vpws-group",
                   "maapi_init_cursor /internal/int-vpws-group{A}/int-vpws",
                   "maapi_get_objects /internal/int-vpws-group{A}/int-vpws 64x2",
                   "maapi_destroy_cursor /internal/int-vpws-group{A}/int-vpws",
                   "maapi_get_next /internal/int-vpws-group", "maapi_init_cursor /internal/int-vpws-group{B}/int-vpws",
                   "maapi_get_objects /internal/int-vpws-group{B}/int-vpws 64x2",
                   "maapi_destroy_cursor /internal/int-vpws-group{B}/int-vpws",
                   "maapi_get_next /internal/int-vpws-group", "maapi_destroy_cursor /internal/int-vpws-group"}));
}

TEST_F(VpwsNamesTest, vpls_names_are_not_read) {
  platform.list("/mpls/l2vpn-config/l2vpn/vpls-group", 1, {{text("a b")}});
  platform.list("/internal/int-vpls-group", 1, {{text("a b")}});
  EXPECT_EQ(verdict(), 0);
}

struct BatchCase {
  std::uint32_t vpns;
  std::size_t fetches;
};

const std::vector<BatchCase> batch_cases{{0, 1}, {1, 1}, {63, 1}, {64, 2}, {65, 2}, {127, 2}, {128, 3}, {129, 3}};

TEST_F(VpwsNamesTest, reads_vpns_in_batches_until_the_list_ends) {
  for (const BatchCase &row : batch_cases) {
    SCOPED_TRACE(row.vpns);
    configure_many(row.vpns, "z");
    platform.forget_calls();
    EXPECT_EQ(vpn_verdict("north"), 0);
    EXPECT_EQ(platform.count("maapi_get_objects"), row.fetches);
    EXPECT_EQ(platform.count("confd_free_value"), row.vpns);
  }
}

TEST_F(VpwsNamesTest, finds_an_invalid_last_vpn_of_every_batch) {
  for (const BatchCase &row : batch_cases) {
    if (row.vpns == 0) continue;
    SCOPED_TRACE(row.vpns);
    configure_many(row.vpns, "z z");
    platform.forget_calls();
    EXPECT_EQ(vpn_verdict("north"), -1);
    EXPECT_EQ(platform.error(), "VPWS Group name north VPN name z z" + kInvalid);
    EXPECT_EQ(platform.count("maapi_get_objects"), (row.vpns + 63) / 64) << "nothing is read after it";
    EXPECT_EQ(platform.count("confd_free_value"), row.vpns);
  }
}

TEST_F(VpwsNamesTest, vpns_that_cannot_be_read_are_accepted) {
  configure_many(129, "z z");
  for (const std::size_t nth : {1U, 2U, 3U}) {
    SCOPED_TRACE(nth);
    platform.forget_calls();
    platform.fail("maapi_get_objects", nth);
    EXPECT_EQ(verdict(), 0);
    EXPECT_EQ(platform.count("confd_free_value"), 64 * (nth - 1));
  }
  EXPECT_EQ(platform.errors(), Texts{});
}

struct FailureCase {
  const char *function;
  std::size_t nth;
  std::int32_t result;
};

// Group A's VPNs are valid, group B's are not.
const std::vector<FailureCase> failure_cases{
    {"maapi_init_cursor", 1, 0}, {"maapi_init_cursor", 2, -1}, {"maapi_init_cursor", 3, 0}, {"maapi_get_next", 1, 0},
    {"maapi_get_next", 2, 0},    {"maapi_get_objects", 1, -1}, {"maapi_get_objects", 2, 0},
};

TEST_F(VpwsNamesTest, what_cannot_be_read_is_accepted) {
  configure({{"A", {"a"}}, {"B", {"b b"}}});
  for (const FailureCase &row : failure_cases) {
    SCOPED_TRACE(std::string(row.function) + " " + std::to_string(row.nth));
    scripted::Platform &p = platform;
    p.forget_calls();
    p.fail(row.function, row.nth);
    EXPECT_EQ(verdict(), row.result);
    p.fail(row.function, 0);
  }
}

TEST_F(VpwsNamesTest, a_group_key_of_another_type_stops_the_process) {
  platform.list(kGroups, 1, {{u32(1)}});
  EXPECT_BROKEN_MODEL(verdict(), "config_validate_vpws", "(&mc.keys[0])->type == C_BUF");
}

TEST_F(VpwsNamesTest, a_vpn_name_of_another_type_stops_the_process) {
  platform.list(vpns_of("north"), 2, {{u32(1), u32(1)}});
  EXPECT_BROKEN_MODEL(vpn_verdict("north"), "config_validate_vpws", "(&values[0])->type == C_BUF");
}

TEST_F(VpwsNamesTest, a_vpn_id_of_another_type_does_not_matter) {
  platform.list(vpns_of("north"), 2, {{text("east"), text("not a number")}});
  EXPECT_EQ(vpn_verdict("north"), 0);
  expected_leaks = {"value not a number"};  // only names are taken for what they are and freed
}

TEST_F(VpwsNamesTest, finds_the_id_of_a_vpn) {
  platform.list(vpns_of("north"), 2, {{text("east"), u32(5)}, {text("south"), u32(6)}, {text("west"), u32(7)}});
  platform.list(vpns_of("other"), 2, {{text("south"), u32(8)}});
  EXPECT_EQ(id_of("north", "east"), 5U);
  EXPECT_EQ(id_of("north", "south"), 6U);
  EXPECT_EQ(id_of("north", "west"), 7U);
  EXPECT_EQ(id_of("other", "south"), 8U);
}

TEST_F(VpwsNamesTest, a_vpn_that_does_not_exist_has_id_0) {
  platform.list(vpns_of("north"), 2, {{text("east"), u32(5)}, {text("west"), u32(7)}});
  EXPECT_EQ(id_of("north", "a"), 0U) << "before the first";
  EXPECT_EQ(id_of("north", "south"), 0U) << "between two";
  EXPECT_EQ(id_of("north", "z"), 0U) << "after the last";
  EXPECT_EQ(id_of("nowhere", "east"), 0U);
}

TEST_F(VpwsNamesTest, of_several_ids_the_lowest_above_0_is_the_vpns) {
  platform.list(vpns_of("north"), 2, {{text("east"), u32(0)}, {text("east"), u32(9)}, {text("east"), u32(4)}});
  EXPECT_EQ(id_of("north", "east"), 4U);
  platform.list(vpns_of("north"), 2, {{text("east"), u32(0)}});
  EXPECT_EQ(id_of("north", "east"), 0U);
}

TEST_F(VpwsNamesTest, looks_the_id_up_in_one_move) {
  platform.list(vpns_of("north"), 2, {{text("east"), u32(5)}});
  EXPECT_EQ(id_of("north", "east"), 5U);
  EXPECT_EQ(platform.calls(), (Calls{"maapi_init_cursor /internal/int-vpws-group{north}/int-vpws",
                                     "maapi_find_next /internal/int-vpws-group{north}/int-vpws after {east 0}",
                                     "maapi_destroy_cursor /internal/int-vpws-group{north}/int-vpws"}));
}

TEST_F(VpwsNamesTest, an_id_that_cannot_be_read_is_0) {
  platform.list(vpns_of("north"), 2, {{text("east"), u32(5)}});
  for (const char *function : {"maapi_init_cursor", "maapi_find_next"}) {
    SCOPED_TRACE(function);
    platform.forget_calls();
    platform.fail(function, 1);
    EXPECT_EQ(id_of("north", "east"), 0U);
  }
}

TEST_F(VpwsNamesTest, an_id_or_name_key_of_another_type_stops_the_process) {
  platform.list(vpns_of("north"), 2, {{text("east"), scripted::enum_value(5)}});
  EXPECT_BROKEN_MODEL(id_of("north", "east"), "config_validate_vpws", "(&mc.keys[1])->type == C_UINT32");
  platform.list(vpns_of("north"), 2, {{scripted::ipv4("10.0.0.1"), u32(5)}});
  EXPECT_BROKEN_MODEL(id_of("north", "east"), "config_validate_vpws", "(&mc.keys[0])->type == C_BUF");
}

}  // namespace
