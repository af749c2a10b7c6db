#include "report/change_list.h"

#include <gtest/gtest.h>

#include <sstream>

#include "element/datastore/tree.h"
#include "report/text/verdict_text.h"

namespace {

using element::Tree;

const element::Schema &schema() {
  static const element::Schema the_schema;
  return the_schema;
}

class ChangeList : public testing::Test {
 protected:
  std::string text(bool with_derived = false) {
    before.sort();
    after.sort();
    const element::Change changes = element::difference(before, after);
    std::ostringstream out;
    report::write_changes(out, report::list_changes(changes, with_derived), report::TextStyle(false));
    return out.str();
  }

  void put_in_both(const std::string &path, const element::Value &value = {}) {
    before.put(path, value);
    after.put(path, value);
  }

  Tree before{schema()};
  Tree after{schema()};
};

const std::string metro = "/mpls/l2vpn-config/l2vpn/vpws-group{metro}";

TEST_F(ChangeList, the_same_twice_is_no_change) {
  put_in_both(metro + "/vpn{east}");
  EXPECT_EQ(text(), "changes: 0\n\n");
}

TEST_F(ChangeList, a_new_object_stands_on_its_line_and_what_it_holds_below) {
  after.put(metro + "/vpn{east}/neighbor{192.0.2.1}/pw-id", std::uint32_t{7});
  after.put(metro + "/vpn{east}/access-interface{ge-1}/encapsulation/untagged");
  EXPECT_EQ(text(),
            "changes: 6\n"
            "+ /mpls/l2vpn-config/l2vpn/vpws-group{metro}\n"
            "  + vpn{east}\n"
            "  + vpn{east}/neighbor{192.0.2.1}\n"
            "  + vpn{east}/neighbor{192.0.2.1}/pw-id: 7\n"
            "  + vpn{east}/access-interface{ge-1}\n"
            "  + vpn{east}/access-interface{ge-1}/encapsulation/untagged\n"
            "\n");
}

TEST_F(ChangeList, an_object_that_stays_heads_what_changed_in_it) {
  put_in_both(metro + "/vpn{east}/neighbor{192.0.2.1}/pw-id", std::uint32_t{7});
  put_in_both(metro + "/vpn{old}");
  after.put(metro + "/vpn{east}/neighbor{192.0.2.1}/pw-id", std::uint32_t{8});
  before.put(metro + "/vpn{east}/access-interface{ge-1}/dot1q", std::uint16_t{100});
  after.put(metro + "/vpn{east}/access-interface{ge-1}");
  after.put(metro + "/vpn{east}/access-interface{ge-2}/dot1q", std::uint16_t{200});
  after.erase(metro + "/vpn{old}");
  EXPECT_EQ(text(),
            "changes: 5\n"
            "~ /mpls/l2vpn-config/l2vpn/vpws-group{metro}\n"
            "  ~ vpn{east}/neighbor{192.0.2.1}/pw-id: 7 -> 8\n"
            "  - vpn{east}/access-interface{ge-1}/dot1q: 100\n"
            "  + vpn{east}/access-interface{ge-2}\n"
            "  + vpn{east}/access-interface{ge-2}/dot1q: 200\n"
            "  - vpn{old}\n"
            "\n");
}

TEST_F(ChangeList, every_object_has_its_own_head) {
  before.put("/mpls/ldp/interface{uplink}");
  put_in_both("/base:config/vlan{5}");
  after.put("/base:config/vlan{5}/interface{ge-1}");
  put_in_both("/base:config/vlan{6}");
  after.put("/base:config/vlan{6}/interface{ge-1}");
  EXPECT_EQ(text(),
            "changes: 3\n"
            "~ /config/vlan{5}\n"
            "  + interface{ge-1}\n"
            "~ /config/vlan{6}\n"
            "  + interface{ge-1}\n"
            "- /mpls/ldp/interface{uplink}\n"
            "\n");
}

TEST_F(ChangeList, derived_nodes_are_listed_on_demand_only) {
  const std::string bridge_domain = "/internal/int-vpls-group{campus}/int-vpls-vpn{voice 1}/int-vpls-bd";
  before.put(bridge_domain + "/int-vpls-bd-tls", element::Enumeration{2});
  after.put(bridge_domain + "/int-vpls-bd-tls", element::Enumeration{1});
  EXPECT_EQ(text(), "changes: 0\n\n");
  EXPECT_EQ(text(true),
            "changes: 1\n"
            "~ /internal/int-vpls-group{campus}\n"
            "  ~ int-vpls-vpn{voice 1}/int-vpls-bd/int-vpls-bd-tls: off (2) -> on (1)\n"
            "\n");
}

TEST_F(ChangeList, a_name_cannot_forge_a_line) {
  after.put_entry("/mpls/ldp/interface", {std::string("up\nlink\x1b[2J")});
  EXPECT_EQ(text(), "changes: 1\n+ /mpls/ldp/interface{up\\nlink\\x1b[2J}\n\n");
}

}  // namespace
