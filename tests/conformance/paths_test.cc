#include "tests/conformance/conformance_test.h"

namespace conformance {
namespace {

class PathsTest : public ConformanceTest {};

TEST_F(PathsTest, are_formats_with_texts_and_numbers_in_and_outside_braces) {
  stage->put(kMembers, {u32(1), i32(100), i32(1001)});
  stage->open();
  EXPECT_EQ(maapi_exists(sock(), handle(), "%s{1 %d %d}", kMembers, 100, 1001), 1);
  EXPECT_EQ(maapi_exists(sock(), handle(), "%s{%u %d %d}", kMembers, 1U, 100, 1001), 1);
  EXPECT_EQ(maapi_exists(sock(), handle(), "%s{1 %d %d}", kMembers, 100, 1002), 0);
  EXPECT_EQ(maapi_exists(sock(), handle(), "%s{1 %d %s}", kMembers, 100, "1001"), 1);
}

TEST_F(PathsTest, may_carry_module_prefixes) {
  stage->put("/mpls/l2vpn-config/l2vpn/vpls-group", {text("south")});
  stage->put("/base:config/service-port", {u32(7)}, {{"match/vlan/vlan-id/any", scripted::tag(1)}});
  stage->open();
  for (const char *path :
       {"/mpls/l2vpn-config/l2vpn/vpls-group{south}",
        "/mpls/l2-vpn:l2vpn-config/l2vpn/mpls-l2vpn-vpls:vpls-group{south}",
        "/base:config/service-port{7}/match/vlan/vlan-id/any", "/config/service-port{7}/match/vlan/vlan-id/any"}) {
    EXPECT_EQ(maapi_exists(sock(), handle(), "%s", path), 1) << path;
  }
}

TEST_F(PathsTest, a_key_with_a_blank_is_one_key_as_an_argument_of_its_own_or_quoted) {
  stage->put(kVpwsGroups, {text("north west")});
  stage->open();
  EXPECT_EQ(maapi_exists(sock(), handle(), "%s{%s}", kVpwsGroups, "north west"), 1);
  EXPECT_EQ(maapi_exists(sock(), handle(), "%s", "/mpls/l2vpn-config/l2vpn/vpws-group{\"north west\"}"), 1);
}

TEST_F(PathsTest, a_key_with_a_blank_that_was_formatted_beforehand_reads_as_two) {
  stage->put(kVpwsGroups, {text("north west")});
  stage->open();
  EXPECT_EQ(maapi_exists(sock(), handle(), "%s", "/mpls/l2vpn-config/l2vpn/vpws-group{north west}"), -1);
  EXPECT_EQ(confd_errno, CONFD_ERR_BADPATH);
}

TEST_F(PathsTest, a_brace_a_quote_or_a_cut_in_a_key_that_was_formatted_beforehand_makes_no_path) {
  const std::string groups = kVpwsGroups;
  const std::string long_name(600, 'x');
  for (const std::string &name : {std::string("a}b"), std::string("a\"b"), long_name}) {
    stage->put(kVpwsGroups, {text(name)});
  }
  stage->open();
  for (const std::string &path :
       {groups + "{a}b}", groups + "{a\"b}", groups + "{\"a", (groups + "{" + long_name + "}").substr(0, 511)}) {
    EXPECT_EQ(maapi_exists(sock(), handle(), "%s", path.c_str()), -1) << path;
    EXPECT_EQ(confd_errno, CONFD_ERR_BADPATH) << path;
  }
  for (const std::string &name : {std::string("a}b"), std::string("a\"b"), long_name}) {
    EXPECT_EQ(maapi_exists(sock(), handle(), "%s{%s}", kVpwsGroups, name.c_str()), 1) << name;
  }
}

TEST_F(PathsTest, an_opening_brace_in_a_key_is_part_of_the_key_and_quotes_are_not) {
  for (const char *name : {"a{b", "ab"}) stage->put(kVpwsGroups, {text(name)});
  stage->open();
  EXPECT_EQ(maapi_exists(sock(), handle(), "%s", "/mpls/l2vpn-config/l2vpn/vpws-group{a{b}"), 1);
  EXPECT_EQ(maapi_exists(sock(), handle(), "%s", "/mpls/l2vpn-config/l2vpn/vpws-group{\"ab\"}"), 1);
  EXPECT_EQ(maapi_exists(sock(), handle(), "%s{%s}", kVpwsGroups, "\"ab\""), 0);
}

TEST_F(PathsTest, a_percent_sign_is_doubled_in_the_format_and_single_in_an_argument) {
  for (const char *name : {"%s", "50%", "%n", "%%"}) stage->put(kVpwsGroups, {text(name)});
  stage->open();
  EXPECT_EQ(maapi_exists(sock(), handle(), "/mpls/l2vpn-config/l2vpn/vpws-group{%%s}"), 1);
  EXPECT_EQ(maapi_exists(sock(), handle(), "/mpls/l2vpn-config/l2vpn/vpws-group{50%%}"), 1);
  EXPECT_EQ(maapi_exists(sock(), handle(), "/mpls/l2vpn-config/l2vpn/vpws-group{%%n}"), 1);
  EXPECT_EQ(maapi_exists(sock(), handle(), "/mpls/l2vpn-config/l2vpn/vpws-group{%%%%}"), 1);
  EXPECT_EQ(maapi_exists(sock(), handle(), "/mpls/l2vpn-config/l2vpn/vpws-group{%%}"), 0);
  EXPECT_EQ(maapi_exists(sock(), handle(), "%s{%s}", kVpwsGroups, "%%"), 1);
  EXPECT_EQ(maapi_exists(sock(), handle(), "%s", "/mpls/l2vpn-config/l2vpn/vpws-group{50%}"), 1);
}

TEST_F(PathsTest, a_list_takes_all_its_keys) {
  stage->put(kMembers, {u32(1), i32(100), i32(1001)});
  stage->open();
  EXPECT_EQ(maapi_exists(sock(), handle(), "%s{1 100}", kMembers), -1);
  EXPECT_EQ(confd_errno, CONFD_ERR_BADPATH);
}

}  // namespace
}  // namespace conformance
