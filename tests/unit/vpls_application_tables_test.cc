#include "config_validate_comn/daemon/vpls_application_tables.h"

#include "tests/unit/access_test.h"

namespace {

using scripted::enum_value;
using scripted::text;
using scripted::u32;

constexpr const char *kVpns = "/internal/int-vpls-group{north}/int-vpls-vpn";

class InternalVplsTest : public AccessTest {
 protected:
  std::uint32_t id() { return get_int_vpls_id(sock(), tctx(), "north", "red"); }
  bool tls() { return get_vpls_tls(sock(), tctx(), "north", "red"); }
};

TEST_F(InternalVplsTest, finds_the_identifier_of_a_vpn) {
  platform.list(kVpns, 2, {{text("blue"), u32(4)}, {text("red"), u32(9)}, {text("redder"), u32(2)}});
  EXPECT_EQ(id(), 9U);
  EXPECT_EQ(platform.calls(), (Calls{std::string("maapi_init_cursor ") + kVpns,
                                     std::string("maapi_find_next ") + kVpns + " after {red 0}",
                                     std::string("maapi_destroy_cursor ") + kVpns}));
}

TEST_F(InternalVplsTest, of_several_the_lowest_above_zero) {
  platform.list(kVpns, 2, {{text("red"), u32(0)}, {text("red"), u32(5)}, {text("red"), u32(3)}});
  EXPECT_EQ(id(), 3U);
}

TEST_F(InternalVplsTest, a_vpn_that_is_not_there_has_none) {
  EXPECT_EQ(id(), 0U) << "no such group";
  platform.list(kVpns, 2, {{text("blue"), u32(4)}, {text("redder"), u32(2)}});
  EXPECT_EQ(id(), 0U) << "the next VPN has another name";
  platform.list(kVpns, 2, {{text("blue"), u32(4)}});
  EXPECT_EQ(id(), 0U) << "no next VPN";
}

TEST_F(InternalVplsTest, a_failed_look_up_finds_none) {
  platform.list(kVpns, 2, {{text("red"), u32(9)}});
  for (const char *function : {"maapi_init_cursor", "maapi_find_next"}) {
    SCOPED_TRACE(function);
    fail_only(function, 1);
    EXPECT_EQ(id(), 0U);
  }
}

TEST_F(InternalVplsTest, the_keys_of_a_vpn_are_a_text_and_a_number) {
  platform.list(kVpns, 2, {{u32(1), u32(9)}});
  EXPECT_BROKEN_MODEL(id(), "config_validate_comn", "(&mc.keys[0])->type == C_BUF");
  platform.list(kVpns, 2, {{text("red"), enum_value(9)}});
  EXPECT_BROKEN_MODEL(id(), "config_validate_comn", "(&mc.keys[1])->type == C_UINT32");
  platform.list(kVpns, 2, {{text("redder"), enum_value(9)}});
  EXPECT_EQ(id(), 0U) << "another VPN's identifier is not used";
}

TEST_F(InternalVplsTest, transparent_lan_service_is_every_setting_but_two) {
  platform.list(kVpns, 2, {{text("red"), u32(9)}});
  const std::string leaf = std::string(kVpns) + "{red 9}/int-vpls-bd/int-vpls-bd-tls";
  EXPECT_FALSE(tls()) << "a setting that is not there";
  for (const auto &[setting, is_on] : std::map<int, bool>{{0, true}, {1, true}, {2, false}, {3, true}}) {
    SCOPED_TRACE(setting);
    platform.leaf(leaf, enum_value(setting));
    EXPECT_EQ(tls(), is_on);
  }
}

TEST_F(InternalVplsTest, an_unreadable_setting_is_off) {
  platform.list(kVpns, 2, {{text("red"), u32(9)}});
  platform.leaf(std::string(kVpns) + "{red 9}/int-vpls-bd/int-vpls-bd-tls", enum_value(1));
  fail_only("maapi_get_enum_value_elem", 1);
  EXPECT_FALSE(tls());
}

TEST_F(InternalVplsTest, a_vpn_without_identifier_is_read_under_zero) {
  EXPECT_FALSE(tls());
  EXPECT_EQ(calls_of({"maapi_get_enum_value_elem"}),
            Calls{std::string("maapi_get_enum_value_elem ") + kVpns + "{red 0}/int-vpls-bd/int-vpls-bd-tls"});
}

TEST_F(InternalVplsTest, the_entrys_path_is_cut_at_511_characters) {
  const std::string group(600, 'g');
  EXPECT_FALSE(get_vpls_tls(sock(), tctx(), group, "red"));
  EXPECT_EQ(calls_of({"maapi_get_enum_value_elem"}),
            Calls{"maapi_get_enum_value_elem " + ("/internal/int-vpls-group{" + group).substr(0, 511) +
                  "/int-vpls-bd/int-vpls-bd-tls"});
}

}  // namespace
