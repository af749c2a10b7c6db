#include <cstring>

#include "tests/conformance/conformance_test.h"

namespace conformance {
namespace {

constexpr std::uint32_t kDot1qTag = 0x7307a7db;

class ValuesTest : public ConformanceTest {
 protected:
  /// The values' types, in order.
  static std::vector<confd_vtype> types(const Values &values) {
    std::vector<confd_vtype> types;
    for (const Value &value : values) types.push_back(value.type);
    return types;
  }

  Values read_object(const char *path, int room, int *count) {
    ReadValues values(static_cast<std::size_t>(room));
    *count = maapi_get_object(sock(), handle(), values.data(), room, "%s", path);
    return values.filled();
  }

  const Value head = scripted::tag(1);  ///< of a container, or a leaf of type empty; the host has its own number
};

TEST_F(ValuesTest, of_an_entry_are_its_keys_then_its_leafs_in_schema_order) {
  stage->put(kTunnels, {text("north"), u32(3), u32(7), u32(100)}, {{"role", u32(1)}, {"vpn", text("east")}});
  stage->open();
  int count = 0;
  const Values read = read_object("/internal/int-vpws-tunnel-idx{north 3 7 100}", 8, &count);
  EXPECT_EQ(read, (Values{text("north"), u32(3), u32(7), u32(100), u32(1), text("east")}));
  EXPECT_EQ(count, 6);
}

TEST_F(ValuesTest, of_a_container_are_its_leafs_and_a_nested_list_is_one_that_does_not_exist) {
  stage->put("/internal/int-vpls-group", {text("south")});
  stage->put("/internal/int-vpls-group{south}/int-vpls-vpn", {text("red"), u32(4)});
  stage->put_container("/internal/int-vpls-group{south}/int-vpls-vpn{red 4}/int-vpls-bd",
                       {{"int-vpls-bd-vlan", u32(0)},
                        {"int-vpls-bd-tls", enum_value(2)},
                        {"int-vpls-bd-mtu", absent()},
                        {"int-vpls-ac", absent()}});
  stage->open();
  int count = 0;
  const Values read = read_object("/internal/int-vpls-group{south}/int-vpls-vpn{red 4}/int-vpls-bd", 8, &count);
  EXPECT_EQ(read, (Values{u32(0), enum_value(2), absent(), absent()})) << "the MTU is not set";
  EXPECT_EQ(count, 4);
}

TEST_F(ValuesTest, of_an_entry_hold_a_containers_head_and_then_its_own_values) {
  stage->put("/internal/int-vpls-group", {text("south")});
  stage->put("/internal/int-vpls-group{south}/int-vpls-vpn", {text("red"), u32(4)});
  stage->put("/internal/int-vpls-group{south}/int-vpls-vpn{red 4}/int-vpls-bd/int-vpls-ac", {text("gigabit-1")},
             {{"int-vpls-encap", head},
              {"int-vpls-encap/int-vpls-encap-untagged", enum_value(1)},
              {"int-vpls-encap/int-vpls-encap-dot1q-range", absent()}});
  stage->open();
  int count = 0;
  const Values read =
      read_object("/internal/int-vpls-group{south}/int-vpls-vpn{red 4}/int-vpls-bd/int-vpls-ac{gigabit-1}", 8, &count);
  EXPECT_EQ(types(read), (std::vector<confd_vtype>{C_BUF, C_XMLTAG, C_ENUM_VALUE, C_NOEXISTS}));
  EXPECT_EQ(count, 4);
}

TEST_F(ValuesTest, an_empty_leaf_is_a_tag_when_it_is_there) {
  const char *with = "/base:config/service-port{7}/match/vlan/vlan-id";
  stage->put("/base:config/service-port", {u32(7)});
  stage->put_container(with, {{"vid", absent()}, {"any", head}});
  stage->open();
  int count = 0;
  EXPECT_EQ(types(read_object(with, 4, &count)), (std::vector<confd_vtype>{C_NOEXISTS, C_XMLTAG}));
  EXPECT_EQ(count, 2);
  EXPECT_EQ(maapi_exists(sock(), handle(), "%s/any", with), 1);
  EXPECT_EQ(maapi_exists(sock(), handle(), "%s/vid", with), 0);
}

TEST_F(ValuesTest, an_object_read_fills_no_more_than_it_is_asked_for) {
  stage->put(kTunnels, {text("north"), u32(3), u32(7), u32(100)}, {{"role", u32(1)}, {"vpn", text("east")}});
  stage->open();
  int count = 0;
  EXPECT_EQ(read_object("/internal/int-vpws-tunnel-idx{north 3 7 100}", 2, &count), (Values{text("north"), u32(3)}));
  EXPECT_EQ(count, 6);
}

TEST_F(ValuesTest, an_object_that_is_not_there_is_an_error) {
  stage->open();
  int count = 0;
  EXPECT_EQ(read_object("/internal/int-vpws-tunnel-idx{north 3 7 100}", 2, &count), Values{});
  EXPECT_EQ(count, -1);
  EXPECT_EQ(confd_errno, CONFD_ERR_NOEXISTS);
}

TEST_F(ValuesTest, a_text_is_the_callers_until_it_is_freed_and_has_a_zero_behind_it) {
  stage->put(kTunnels, {text("north"), u32(3), u32(7), u32(100)}, {{"role", u32(1)}, {"vpn", text("east")}});
  stage->open();
  confd_value_t value{};
  ASSERT_EQ(maapi_get_elem(sock(), handle(), &value, "%s{north 3 7 100}/vpn", kTunnels), CONFD_OK);
  ASSERT_EQ(value.type, C_BUF);
  EXPECT_EQ(value.val.buf.size, 4U);
  EXPECT_EQ(std::memcmp(value.val.buf.ptr, "east", 5), 0);
  EXPECT_EQ(stage->left_open(), 1U);
  confd_free_value(&value);
  EXPECT_EQ(stage->left_open(), 0U);
}

TEST_F(ValuesTest, freeing_a_number_does_nothing) {
  stage->open();
  for (const Value &value : {u32(5), i32(-5), enum_value(2), ipv4("10.0.0.1"), absent(), scripted::tag(kDot1qTag)}) {
    confd_value_t given = scripted::borrowed(value);
    confd_free_value(&given);
    EXPECT_EQ(scripted::from_platform(given), value);
  }
}

TEST_F(ValuesTest, an_address_stands_in_network_byte_order) {
  const char *list = "/internal/int-sub-vpls-vpn-nbr";
  stage->put(list, {text("south"), text("red"), u32(4), ipv4("10.0.0.2")}, {{"role", u32(0)}, {"pw-id", u32(100)}});
  stage->open();
  maapi_cursor mc{};
  maapi_init_cursor(sock(), handle(), &mc, "%s", list);
  maapi_get_next(&mc);
  ASSERT_EQ(mc.keys[3].type, C_IPV4);
  EXPECT_EQ(std::memcmp(&mc.keys[3].val.ip, "\x0a\x00\x00\x02", 4), 0);
  maapi_destroy_cursor(&mc);
  EXPECT_EQ(maapi_exists(sock(), handle(), "%s{south red 4 10.0.0.2}", list), 1);
}

TEST_F(ValuesTest, a_leaf_is_read_as_what_it_is) {
  stage->put("/internal/int-sub-vpls-vpn-bd", {text("south"), text("red"), u32(4)}, {{"int-vpls-bd-vlan", u32(100)}});
  stage->put("/internal/int-vpws-intf-encap", {text("north"), text("east"), u32(1), text("gigabit-1")},
             {{"int-vpws-encap-untagged", enum_value(1)}});
  stage->open();
  const char *vlan_path = "/internal/int-sub-vpls-vpn-bd{south red 4}/int-vpls-bd-vlan";
  const char *untagged_path = "/internal/int-vpws-intf-encap{north east 1 gigabit-1}/int-vpws-encap-untagged";

  std::uint32_t vlan = 0;
  EXPECT_EQ(maapi_get_u_int32_elem(sock(), handle(), &vlan, "%s", vlan_path), CONFD_OK);
  EXPECT_EQ(vlan, 100U);
  std::int32_t untagged = 2;
  EXPECT_EQ(maapi_get_enum_value_elem(sock(), handle(), &untagged, "%s", untagged_path), CONFD_OK);
  EXPECT_EQ(untagged, 1);
  confd_value_t value{};
  EXPECT_EQ(maapi_get_elem(sock(), handle(), &value, "%s", vlan_path), CONFD_OK);
  EXPECT_EQ(scripted::from_platform(value), u32(100));

  EXPECT_EQ(maapi_get_u_int32_elem(sock(), handle(), &vlan, "%s", untagged_path), -1);
  EXPECT_EQ(confd_errno, CONFD_ERR_BADTYPE);
  EXPECT_EQ(maapi_get_enum_value_elem(sock(), handle(), &untagged, "%s", vlan_path), -1);
  EXPECT_EQ(confd_errno, CONFD_ERR_BADTYPE);
  EXPECT_EQ(vlan, 100U);
  EXPECT_EQ(untagged, 1);
}

TEST_F(ValuesTest, a_leaf_that_is_not_set_is_an_error_that_leaves_the_output_alone) {
  stage->put("/internal/int-sub-vpls-vpn-bd", {text("south"), text("red"), u32(4)}, {{"int-vpls-bd-vlan", absent()}});
  stage->open();
  const char *path = "/internal/int-sub-vpls-vpn-bd{south red 4}/int-vpls-bd-vlan";
  EXPECT_EQ(maapi_exists(sock(), handle(), "%s", path), 0);
  EXPECT_EQ(maapi_exists(sock(), handle(), "/internal/int-sub-vpls-vpn-bd{south red 4}"), 1);

  std::uint32_t vlan = 77;
  confd_errno = 0;
  EXPECT_EQ(maapi_get_u_int32_elem(sock(), handle(), &vlan, "%s", path), -1);
  EXPECT_EQ(confd_errno, CONFD_ERR_NOEXISTS);
  EXPECT_EQ(vlan, 77U);
  ReadValues values(1);
  confd_errno = 0;
  EXPECT_EQ(maapi_get_elem(sock(), handle(), values.data(), "%s", path), -1);
  EXPECT_EQ(confd_errno, CONFD_ERR_NOEXISTS);
  EXPECT_TRUE(values.is_untouched(0));
}

}  // namespace
}  // namespace conformance
