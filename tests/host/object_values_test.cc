#include "host/seam/object_values.h"

#include "tests/host/served_element.h"

namespace {

using element::Enumeration;
using element::Value;
using host_test::schema;
using host_test::shown;
using host_test::tag;

class ObjectValues : public host_test::ServedElement {
 protected:
  /// The values of the node at a path, as many as there are.
  std::vector<std::string> values(const char *path) { return written(*candidate.find(path)); }

  std::vector<std::string> written(const element::Node &node) {
    std::vector<confd_value_t> row(16);
    row.resize(static_cast<std::size_t>(host::write_object(*node.schema, &node, row.data(), 16)));
    std::vector<std::string> result;
    for (confd_value_t &value : row) {
      result.push_back(shown(value));
      confd_free_value(&value);
    }
    return result;
  }
};

using Shown = std::vector<std::string>;

TEST_F(ObjectValues, of_an_entry_are_its_keys_then_its_leafs) {
  candidate.put("/internal/int-sub-vpls-vpn-nbr{G V 3 10.0.0.1}/role", 0U);
  candidate.put("/internal/int-sub-vpls-vpn-nbr{G V 3 10.0.0.1}/pw-id", 100U);
  EXPECT_EQ(values("/internal/int-sub-vpls-vpn-nbr{G V 3 10.0.0.1}"),
            (Shown{"C_BUF G", "C_BUF V", "C_UINT32 3", "C_IPV4 10.0.0.1", "C_UINT32 0", "C_UINT32 100"}));
}

TEST_F(ObjectValues, what_is_not_set_keeps_its_place) {
  candidate.put("/internal/int-sub-vpls-vpn-nbr{G V 3 10.0.0.1}/pw-id", 100U);
  EXPECT_EQ(values("/internal/int-sub-vpls-vpn-nbr{G V 3 10.0.0.1}"),
            (Shown{"C_BUF G", "C_BUF V", "C_UINT32 3", "C_IPV4 10.0.0.1", "C_NOEXISTS", "C_UINT32 100"}));
}

TEST_F(ObjectValues, containers_are_their_tag_and_their_own_values) {
  const std::string entry = "/mpls/l2vpn-config/l2vpn/vpws-group{G}/vpn{V}/access-interface{I}";
  candidate.put(entry + "/dot1q", std::uint16_t{100});
  candidate.put(entry + "/encapsulation/untagged");
  EXPECT_EQ(values(entry.c_str()),
            (Shown{"C_BUF I", "C_UINT16 100", tag("encapsulation"), tag("untagged"), "C_NOEXISTS"}));
}

TEST_F(ObjectValues, a_container_that_holds_nothing_keeps_its_place) {
  candidate.put("/base:config/service-port{7}");
  EXPECT_EQ(values("/base:config/service-port{7}"),
            (Shown{"C_UINT32 7", tag("match"), tag("vlan"), tag("vlan-id"), "C_NOEXISTS", "C_NOEXISTS"}));
}

TEST_F(ObjectValues, a_list_is_one_that_does_not_exist) {
  candidate.put("/internal/int-vpws-group{G}/int-vpws{V 1}");
  EXPECT_EQ(values("/internal/int-vpws-group{G}"), (Shown{"C_BUF G", "C_NOEXISTS"}));
}

TEST_F(ObjectValues, keys_of_another_type_are_served_as_they_are) {
  const element::Node &entry = candidate.put_entry("/internal/int-vpws-group{G}/int-vpws", {Value(5U), Value(-1)});
  EXPECT_EQ(written(entry), (Shown{"C_UINT32 5", "C_INT32 -1"}));
}

TEST_F(ObjectValues, a_key_that_is_missing_does_not_exist) {
  element::Node &entry = candidate.put_entry("/internal/int-sub-vpls-vpn-bd", {Value(std::string("G"))});
  element::set_leaf(entry, *schema().find("/internal/int-sub-vpls-vpn-bd/int-vpls-bd-vlan"), 100U);
  EXPECT_EQ(written(entry), (Shown{"C_BUF G", "C_NOEXISTS", "C_NOEXISTS", "C_UINT32 100"}));
}

TEST_F(ObjectValues, a_key_too_many_follows_the_others) {
  const element::Node &entry = candidate.put_entry("/internal/int-vpws-group{G}/int-vpws",
                                                   {Value(std::string("V")), Value(1U), Value(std::string("more"))});
  EXPECT_EQ(written(entry), (Shown{"C_BUF V", "C_UINT32 1", "C_BUF more"}));
}

TEST_F(ObjectValues, no_more_is_written_or_handed_out_than_there_is_room_for) {
  candidate.put("/internal/int-vpws-tunnel-idx{G 1 7 100}/vpn", std::string("V"));
  const element::Node &entry = *candidate.find("/internal/int-vpws-tunnel-idx{G 1 7 100}");
  confd_value_t row[3];
  row[2] = host_test::u32(77);
  EXPECT_EQ(host::write_object(*entry.schema, &entry, row, 2), 6);
  EXPECT_EQ(shown(row[2]), "C_UINT32 77");
  EXPECT_EQ(session.statistics.owned_values, 1) << "the group; the VPN was not written";
  confd_free_value(&row[0]);
}

TEST_F(ObjectValues, are_as_many_without_an_entry) {
  const element::SchemaNode &list = *schema().find("/internal/int-vpws-tunnel-idx");
  EXPECT_EQ(host::write_object(list, nullptr, nullptr, 0), 6);
}

}  // namespace
