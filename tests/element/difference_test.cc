#include "element/datastore/difference.h"

#include <gtest/gtest.h>

#include "print.h"

using element::Change;
using element::ChangeKind;
using element::difference;
using element::find_change;
using element::parse_path;
using element::Tree;

namespace {

const std::string l2vpn = "/mpls/l2vpn-config/l2vpn";
const std::string vpls_vpn = l2vpn + "/vpls-group{G}/vpn{V}";
const std::string bridge_domain = vpls_vpn + "/bridge-domain";
const std::string vpws_access = l2vpn + "/vpws-group{G}/vpn{V}/access-interface{eth1}";

struct Case {
  const char *name;
  Lines before;
  Lines after;
  Lines changes;
};

void PrintTo(const Case &test, std::ostream *out) { *out << test.name; }

std::string name_of(const testing::TestParamInfo<Case> &info) { return info.param.name; }

class Difference : public testing::TestWithParam<Case> {};

TEST_P(Difference, leads_from_one_tree_to_the_other) {
  const Tree before = tree_of(GetParam().before);
  const Tree after = tree_of(GetParam().after);
  EXPECT_EQ(print(difference(before, after), test_schema()), GetParam().changes);
}

const Case entries_and_leafs[] = {
    {"nothing_in_two_empty_trees", {}, {}, {}},
    {"nothing_in_two_equal_trees",
     {bridge_domain + "/dot1q = 10", vpws_access + "/encapsulation/untagged"},
     {bridge_domain + "/dot1q = 10", vpws_access + "/encapsulation/untagged"},
     {}},
    {"a_created_entry_and_the_leafs_it_sets_but_not_its_keys",
     {},
     {"/config/l3-interface{l3-a}/vlan = 7"},
     {"created /config/l3-interface{l3-a}", "/config/l3-interface{l3-a}/vlan = 7"}},
    {"entries_and_empty_leafs_below_a_created_entry_are_created",
     {},
     {bridge_domain + "/transparent-lan-service", bridge_domain + "/access-interface{eth1}"},
     {"created " + l2vpn + "/vpls-group{G}", "created " + vpls_vpn,
      "created " + bridge_domain + "/transparent-lan-service", "created " + bridge_domain + "/access-interface{eth1}"}},
    {"a_deleted_entry_and_nothing_below_it",
     {bridge_domain + "/dot1q = 10", bridge_domain + "/access-interface{eth1}"},
     {l2vpn + "/vpls-group{G}"},
     {"modified " + l2vpn + "/vpls-group{G}", "deleted " + vpls_vpn}},
    {"entries_above_a_change_are_modified",
     {bridge_domain + "/dot1q = 10"},
     {bridge_domain + "/dot1q = 20"},
     {"modified " + l2vpn + "/vpls-group{G}", "modified " + vpls_vpn, bridge_domain + "/dot1q = 20"}},
    {"a_new_leaf_is_a_value_set",
     {vpls_vpn},
     {bridge_domain + "/bridge-mtu = 1500"},
     {"modified " + l2vpn + "/vpls-group{G}", "modified " + vpls_vpn, bridge_domain + "/bridge-mtu = 1500"}},
    {"a_removed_leaf_is_deleted",
     {bridge_domain + "/bridge-mtu = 1500"},
     {vpls_vpn},
     {"modified " + l2vpn + "/vpls-group{G}", "modified " + vpls_vpn, "deleted " + bridge_domain + "/bridge-mtu"}},
    {"an_empty_leaf_comes",
     {vpws_access},
     {vpws_access + "/encapsulation/untagged"},
     {"modified " + l2vpn + "/vpws-group{G}", "modified " + l2vpn + "/vpws-group{G}/vpn{V}", "modified " + vpws_access,
      "created " + vpws_access + "/encapsulation/untagged"}},
    {"an_empty_leaf_goes",
     {vpws_access + "/encapsulation/untagged"},
     {vpws_access},
     {"modified " + l2vpn + "/vpws-group{G}", "modified " + l2vpn + "/vpws-group{G}/vpn{V}", "modified " + vpws_access,
      "deleted " + vpws_access + "/encapsulation/untagged"}},
    {"what_a_vanished_container_held_is_deleted",
     {"/config/service-port{1}/match/vlan/vlan-id/vid = 5", vpws_access + "/encapsulation/dot1q-range{10 20}"},
     {"/config/service-port{1}", vpws_access},
     {"modified /config/service-port{1}", "deleted /config/service-port{1}/match/vlan/vlan-id/vid",
      "modified " + l2vpn + "/vpws-group{G}", "modified " + l2vpn + "/vpws-group{G}/vpn{V}", "modified " + vpws_access,
      "deleted " + vpws_access + "/encapsulation/dot1q-range{10 20}"}},
};

INSTANTIATE_TEST_SUITE_P(EntriesAndLeafs, Difference, testing::ValuesIn(entries_and_leafs), name_of);

const Case orders[] = {
    {"entries_in_key_order_numbers_by_value",
     {"/config/vlan{9}"},
     {"/config/vlan{10}", "/config/vlan{2}"},
     {"created /config/vlan{2}", "deleted /config/vlan{9}", "created /config/vlan{10}"}},
    {"addresses_as_they_read",
     {},
     {vpls_vpn + "/vfi/neighbor{10.0.0.2}/pw-id = 2", vpls_vpn + "/vfi/neighbor{9.0.0.10}/pw-id = 1"},
     {"created " + l2vpn + "/vpls-group{G}", "created " + vpls_vpn, "created " + vpls_vpn + "/vfi/neighbor{9.0.0.10}",
      vpls_vpn + "/vfi/neighbor{9.0.0.10}/pw-id = 1", "created " + vpls_vpn + "/vfi/neighbor{10.0.0.2}",
      vpls_vpn + "/vfi/neighbor{10.0.0.2}/pw-id = 2"}},
    {"VPWS_groups_before_VPLS_groups_and_leafs_before_lists",
     {bridge_domain + "/access-interface{eth1}", l2vpn + "/vpws-group{G}"},
     {bridge_domain + "/dot1q = 10", bridge_domain + "/access-interface{eth2}", l2vpn + "/vpws-group{H}"},
     {"deleted " + l2vpn + "/vpws-group{G}", "created " + l2vpn + "/vpws-group{H}",
      "modified " + l2vpn + "/vpls-group{G}", "modified " + vpls_vpn, bridge_domain + "/dot1q = 10",
      "deleted " + bridge_domain + "/access-interface{eth1}", "created " + bridge_domain + "/access-interface{eth2}"}},
};

INSTANTIATE_TEST_SUITE_P(Orders, Difference, testing::ValuesIn(orders), name_of);

TEST(Difference, of_trees_that_break_the_data_model) {
  Tree before(test_schema());
  before.put_entry("/config/vlan", {std::string("ten")});
  before.put_entry("/config/vlan", {std::uint16_t{7}, std::uint16_t{7}});
  before.put("/config/l3-interface{l3-a}");
  Tree after(test_schema());
  after.put_entry("/config/vlan", {std::uint16_t{7}});
  after.put("/config/l3-interface{l3-a}/vlan", std::string("seven"));
  EXPECT_EQ(print(difference(before, after), test_schema()),
            (Lines{"deleted /config/vlan{ten}", "created /config/vlan{7}", "deleted /config/vlan{7 7}",
                   "modified /config/l3-interface{l3-a}", "/config/l3-interface{l3-a}/vlan = seven"}));
}

TEST(Difference, of_a_leaf_whose_type_changed) {
  Tree before(test_schema());
  before.put(bridge_domain + "/dot1q", std::uint16_t{10});
  Tree after(test_schema());
  after.put(bridge_domain + "/dot1q", std::uint32_t{10});
  EXPECT_EQ(print(difference(before, after), test_schema(), bridge_domain + "/dot1q"),
            (Lines{bridge_domain + "/dot1q = 10"}));
}

// The element's modules hold no presence container, so one is added to the model by hand.
class PresenceContainer : public testing::Test {
 protected:
  PresenceContainer() {
    container_.name = "tunnel";
    container_.presence = true;
    container_.position = test_schema().root().children.size();
    leaf_.name = "mode";
    leaf_.kind = element::NodeKind::leaf;
    leaf_.type = element::ValueType::text;
    leaf_.parent = &container_;
  }

  Tree with(const std::string &mode) const {
    Tree tree = without();
    set_leaf(child(tree.root(), container_), leaf_, mode);
    return tree;
  }
  static Tree without() { return Tree(test_schema()); }

  static Lines changes(const Tree &before, const Tree &after) {
    return print(difference(before, after), test_schema());
  }

 private:
  element::SchemaNode container_;
  element::SchemaNode leaf_;
};

TEST_F(PresenceContainer, is_created_and_the_leafs_it_holds_follow) {
  EXPECT_EQ(changes(without(), with("fast")), (Lines{"created /tunnel", "/tunnel/mode = fast"}));
}

TEST_F(PresenceContainer, is_deleted_and_nothing_follows) {
  EXPECT_EQ(changes(with("fast"), without()), (Lines{"deleted /tunnel"}));
}

TEST_F(PresenceContainer, is_not_reported_for_a_change_below_it) {
  EXPECT_EQ(changes(with("fast"), with("slow")), (Lines{"/tunnel/mode = slow"}));
}

class FindChange : public testing::Test {
 protected:
  const Change *at(const std::string &path) const { return find_change(changes_, parse_path(test_schema(), path)); }

  const Tree before_ = tree_of({bridge_domain + "/dot1q = 10", bridge_domain + "/access-interface{eth1}",
                                bridge_domain + "/access-interface{eth2}", "/config/vlan{10}/interface{eth7}"});
  const Tree after_ = tree_of({bridge_domain + "/dot1q = 20", bridge_domain + "/access-interface{eth2}",
                               bridge_domain + "/access-interface{eth3}", bridge_domain + "/access-interface{eth4}"});
  const Change changes_ = difference(before_, after_);
};

TEST_F(FindChange, leads_to_the_node_that_changed) {
  const std::pair<std::string, ChangeKind> expected[] = {
      {"/", ChangeKind::below},
      {"/mpls", ChangeKind::below},
      {l2vpn + "/vpls-group", ChangeKind::below},
      {vpls_vpn, ChangeKind::modified},
      {bridge_domain, ChangeKind::below},
      {bridge_domain + "/dot1q", ChangeKind::value_set},
      {bridge_domain + "/access-interface", ChangeKind::below},
      {bridge_domain + "/access-interface{eth1}", ChangeKind::deleted},
      {bridge_domain + "/access-interface{eth3}", ChangeKind::created},
      {bridge_domain + "/access-interface{eth4}", ChangeKind::created},
      {"/config/vlan{10}", ChangeKind::deleted},
  };
  for (const auto &[path, kind] : expected) {
    ASSERT_NE(at(path), nullptr) << path;
    EXPECT_EQ(at(path)->kind, kind) << path;
  }
}

TEST_F(FindChange, finds_nothing_where_nothing_changed) {
  const std::string untouched[] = {bridge_domain + "/bridge-mtu",
                                   bridge_domain + "/access-interface{eth2}",
                                   bridge_domain + "/access-interface{eth0}",
                                   bridge_domain + "/access-interface{eth9}",
                                   bridge_domain + "/access-interface{eth3}/name",
                                   vpls_vpn + "/vfi",
                                   l2vpn + "/vpls-group{H}",
                                   l2vpn + "/vpws-group{G}",
                                   "/internal",
                                   "/config/vlan{10}/interface{eth7}",
                                   "/config/vlan/interface"};
  for (const std::string &path : untouched) EXPECT_EQ(at(path), nullptr) << path;
}

TEST_F(FindChange, shows_both_sides) {
  const Change *leaf = at(bridge_domain + "/dot1q");
  ASSERT_NE(leaf, nullptr);
  EXPECT_EQ(leaf->before, before_.find(bridge_domain + "/dot1q"));
  EXPECT_EQ(leaf->after, after_.find(bridge_domain + "/dot1q"));
  const Change *entry = at(bridge_domain + "/access-interface{eth1}");
  ASSERT_NE(entry, nullptr);
  EXPECT_TRUE(entry->is_entry());
  EXPECT_EQ(to_text(entry->keys().front()), "eth1");
  EXPECT_EQ(entry->after, nullptr);
  EXPECT_FALSE(at(bridge_domain + "/access-interface")->is_entry());
}

}  // namespace
