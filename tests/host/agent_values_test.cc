#include "host/seam/agent_values.h"

#include <limits>

#include "tests/host/served_element.h"

namespace {

using element::Value;
using host_test::schema;

const element::SchemaNode &any_leaf() { return *schema().find("/internal/int-vpws-group/name"); }

struct Row {
  const char *what;
  Value value;
  confd_vtype type;
};

const std::vector<Row> &every_type() {
  static const std::vector<Row> rows{
      {"not set", std::monostate{}, C_NOEXISTS},
      {"empty", element::Empty{}, C_XMLTAG},
      {"text", std::string("north"), C_BUF},
      {"text with a zero", std::string("a\0b", 3), C_BUF},
      {"no text", std::string(), C_BUF},
      {"int8", std::numeric_limits<std::int8_t>::min(), C_INT8},
      {"int16", std::numeric_limits<std::int16_t>::min(), C_INT16},
      {"int32", std::numeric_limits<std::int32_t>::min(), C_INT32},
      {"int64", std::numeric_limits<std::int64_t>::min(), C_INT64},
      {"uint8", std::numeric_limits<std::uint8_t>::max(), C_UINT8},
      {"uint16", std::numeric_limits<std::uint16_t>::max(), C_UINT16},
      {"uint32", std::numeric_limits<std::uint32_t>::max(), C_UINT32},
      {"uint64", std::numeric_limits<std::uint64_t>::max(), C_UINT64},
      {"true", true, C_BOOL},
      {"false", false, C_BOOL},
      {"address", host_test::address("10.0.0.1"), C_IPV4},
      {"enumeration", element::Enumeration{-2}, C_ENUM_VALUE},
  };
  return rows;
}

TEST(AgentValues, every_type_goes_over_the_seam_and_back) {
  for (const Row &row : every_type()) {
    const confd_value_t value = host::borrowed_value(row.value, any_leaf());
    EXPECT_EQ(value.type, row.type) << row.what;
    EXPECT_EQ(host::from_agent(value), row.value) << row.what;
    EXPECT_EQ(host::compare(value, row.value), 0) << row.what;
  }
}

TEST(AgentValues, types_that_the_element_does_not_serve_stand_for_nothing) {
  for (const confd_vtype type : {C_DOUBLE, C_IPV6, C_LIST, C_DEFAULT, C_EMPTY}) {
    confd_value_t value{};
    value.type = type;
    EXPECT_EQ(host::from_agent(value), std::nullopt) << type;
  }
}

TEST(AgentValues, a_zero_terminated_text_is_a_text) {
  char text[] = "north";
  confd_value_t value{};
  value.type = C_STR;
  value.val.s = text;
  EXPECT_EQ(host::from_agent(value), Value(std::string("north")));
  EXPECT_LT(host::compare(value, std::string("northern")), 0);
}

TEST(AgentValues, an_address_keeps_its_bytes_in_network_order) {
  const confd_value_t value = host::borrowed_value(host_test::address("10.0.0.1"), any_leaf());
  const auto *bytes = reinterpret_cast<const unsigned char *>(&value.val.ip);
  EXPECT_EQ(std::vector<int>(bytes, bytes + 4), (std::vector<int>{10, 0, 0, 1}));
}

TEST(AgentValues, an_empty_leaf_is_its_own_tag) {
  const element::SchemaNode &leaf =
      *schema().find("/mpls/l2vpn-config/l2vpn/vpls-group/vpn/bridge-domain/transparent-lan-service");
  const confd_value_t value = host::borrowed_value(element::Empty{}, leaf);
  EXPECT_EQ(value.val.xmltag.tag, element::node_tag("transparent-lan-service"));
  EXPECT_EQ(value.val.xmltag.ns, element::node_tag("mpls-l2vpn-vpls"));
}

TEST(AgentValues, texts_compare_byte_by_byte_and_numbers_by_value) {
  EXPECT_LT(host::compare(host_test::buf("B"), std::string("a")), 0);
  const std::string high = "\xc3";
  EXPECT_GT(host::compare(host_test::buf(high), std::string("z")), 0);
  EXPECT_LT(host::compare(host_test::u32(9), 10U), 0);
  EXPECT_LT(host::compare(host_test::i32(-1), 0), 0);
}

TEST(AgentValues, values_of_different_types_order_as_the_trees_do) {
  for (const Row &a : every_type()) {
    for (const Row &b : every_type()) {
      const int expected = element::compare(a.value, b.value);
      const int order = host::compare(host::borrowed_value(a.value, any_leaf()), b.value);
      EXPECT_EQ(order > 0, expected > 0) << a.what << ", " << b.what;
      EXPECT_EQ(order < 0, expected < 0) << a.what << ", " << b.what;
    }
  }
}

class HandedOut : public host_test::ServedElement {};

TEST_F(HandedOut, a_text_ends_with_a_zero_one_past_its_size_and_is_in_the_account) {
  confd_value_t value = host::owned_value(std::string("north"), any_leaf());
  EXPECT_EQ(value.val.buf.size, 5U);
  EXPECT_STREQ(reinterpret_cast<const char *>(value.val.buf.ptr), "north");
  EXPECT_EQ(session.statistics.owned_values, 1);
  confd_free_value(&value);
  EXPECT_EQ(session.statistics.owned_values, 0);
}

TEST_F(HandedOut, a_number_is_nothing_to_give_back) {
  confd_value_t value = host::owned_value(7U, any_leaf());
  EXPECT_EQ(session.statistics.owned_values, 0);
  confd_free_value(&value);
  EXPECT_EQ(session.statistics.owned_values, 0);
}

TEST(AgentValues, a_leafs_type_on_the_seam_follows_its_type_in_the_model) {
  const std::vector<std::pair<const char *, confd_vtype>> rows{
      {"/internal/int-vpws-group/name", C_BUF},
      {"/internal/int-vpws-group/int-vpws/id", C_UINT32},
      {"/internal/int-sub-vpls-vpn-nbr/neighbor", C_IPV4},
      {"/internal/int-vpls-group/int-vpls-vpn/int-vpls-bd/int-vpls-bd-tls", C_ENUM_VALUE},
      {"/KZ-VLAN-MANAGER-MIB/vlanMgrStaticMemberTable/vlanMgrStaticMemberEntry/vlanMgrVlan", C_INT32},
      {"/base:config/vlan/id", C_UINT16},
      {"/base:config/service-port/match/vlan/vlan-id/any", C_XMLTAG},
  };
  for (const auto &[path, type] : rows) EXPECT_EQ(host::agent_type(*schema().find(path)), type) << path;
}

}  // namespace
