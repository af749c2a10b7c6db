#include <gtest/gtest.h>

#include <algorithm>
#include <utility>

#include "edit_writer.h"
#include "element/datastore/difference.h"
#include "element/edit/apply_edit.h"
#include "element/edit/edit_of_difference.h"
#include "element/input/input_error.h"
#include "print.h"

namespace {

using element::Edit;
using element::EditNode;
using element::EditOperation;

/// An edit with this operation at the end of a path, and none on the way.
Edit edit_at(const std::string &path, EditOperation operation, element::Value value = {}) {
  const element::Path steps = element::parse_path(test_schema(), path);
  EditNode node{steps.back().schema, operation, steps.back().keys, std::move(value), {}, 7};
  for (std::size_t i = steps.size() - 1; i-- > 0;) {
    EditNode around{steps[i].schema, EditOperation::none, steps[i].keys, {}, {}, i + 1};
    around.children.push_back(std::move(node));
    node = std::move(around);
  }
  return {{"edit.xml"}, false, {std::move(node)}};
}

const std::string kGroup = "/mpls/l2vpn-config/l2vpn/vpws-group{G}";
const std::string kVpn = kGroup + "/vpn{V}";
const std::string kAccess = kVpn + "/access-interface{eth1}";

element::Tree running() {
  return tree_of({kVpn, kAccess + "/dot1q = 7", kAccess + "/encapsulation/dot1q-range{7 9}",
                  kAccess + "/encapsulation/dot1q-range{20 30}", "/config/vlan{100}/interface{eth2}"});
}

struct Case {
  const char *name;
  std::string path;
  EditOperation operation;
  element::Value value;
  Lines gone;  ///< lines that the running configuration has and the result has not
  Lines come;  ///< the other way round
  std::string error;
};

void PrintTo(const Case &edit, std::ostream *out) { *out << edit.name; }

class EditOf : public testing::TestWithParam<Case> {};

TEST_P(EditOf, one_node_gives_its_result_or_its_error) {
  const Case &edit = GetParam();
  std::string error;
  Lines lines = print(running());
  try {
    const element::Tree result = edited(running(), edit_at(edit.path, edit.operation, edit.value));
    Lines expected;
    for (const std::string &line : lines) {
      if (std::find(edit.gone.begin(), edit.gone.end(), line) == edit.gone.end()) expected.push_back(line);
    }
    expected.insert(expected.end(), edit.come.begin(), edit.come.end());
    lines = print(result);
    std::sort(lines.begin(), lines.end());
    std::sort(expected.begin(), expected.end());
    EXPECT_EQ(lines, expected);
  } catch (const element::InputError &fault) {
    error = fault.what();
  }
  EXPECT_EQ(error, edit.error);
}

const std::string kEncapsulation = kAccess + "/encapsulation";

INSTANTIATE_TEST_SUITE_P(
    Operations, EditOf,
    testing::Values(
        Case{"merge_of_a_new_entry",
             kVpn + "/access-interface{eth3}",
             EditOperation::merge,
             {},
             {},
             {kVpn + "/access-interface{eth3}"},
             ""},
        Case{"merge_of_an_entry_that_is_there", kAccess, EditOperation::merge, {}, {}, {}, ""},
        Case{"merge_of_a_leaf",
             kAccess + "/dot1q",
             EditOperation::merge,
             std::uint16_t{8},
             {kAccess + "/dot1q = 7"},
             {kAccess + "/dot1q = 8"},
             ""},
        Case{"merge_of_another_case",
             kEncapsulation + "/untagged",
             EditOperation::merge,
             element::Empty{},
             {kEncapsulation + "/dot1q-range{7 9}", kEncapsulation + "/dot1q-range{20 30}"},
             {kEncapsulation + "/untagged"},
             ""},
        Case{"replace_of_an_entry",
             kAccess,
             EditOperation::replace,
             {},
             {kAccess + "/dot1q = 7", kEncapsulation + "/dot1q-range{7 9}", kEncapsulation + "/dot1q-range{20 30}"},
             {},
             ""},
        Case{"replace_of_what_is_not_there",
             kVpn + "/access-interface{eth3}",
             EditOperation::replace,
             {},
             {},
             {kVpn + "/access-interface{eth3}"},
             ""},
        Case{"create_of_a_new_entry",
             kVpn + "/neighbor{192.0.2.1}",
             EditOperation::create,
             {},
             {},
             {kVpn + "/neighbor{192.0.2.1}"},
             ""},
        Case{"create_of_an_entry_that_is_there",
             kAccess,
             EditOperation::create,
             {},
             {},
             {},
             "edit.xml:7: " + kAccess +
                 ": is there already; expected a node that is not there (operation create: data-exists)"},
        Case{"create_below_what_is_not_there",
             kGroup + "/vpn{W}/neighbor{192.0.2.1}",
             EditOperation::create,
             {},
             {},
             {},
             "edit.xml:5: " + kGroup +
                 "/vpn{W}: is not there; expected a node that is there (operation none: data-missing)"},
        Case{"delete_of_an_entry",
             kEncapsulation + "/dot1q-range{7 9}",
             EditOperation::delete_existing,
             {},
             {kEncapsulation + "/dot1q-range{7 9}"},
             {},
             ""},
        Case{"delete_of_the_last_entry_takes_its_containers",
             "/config/vlan{100}",
             EditOperation::delete_existing,
             {},
             {"/config/vlan{100}", "/config/vlan{100}/interface{eth2}"},
             {},
             ""},
        Case{"delete_of_a_leaf",
             kAccess + "/dot1q",
             EditOperation::delete_existing,
             {},
             {kAccess + "/dot1q = 7"},
             {},
             ""},
        Case{"delete_of_what_is_not_there",
             kEncapsulation + "/dot1q-range{7 8}",
             EditOperation::delete_existing,
             {},
             {},
             {},
             "edit.xml:7: " + kEncapsulation +
                 "/dot1q-range{7 8}: is not there; expected a node that is there (operation delete: "
                 "data-missing)"},
        Case{"delete_of_another_case",
             kEncapsulation + "/untagged",
             EditOperation::delete_existing,
             {},
             {},
             {},
             "edit.xml:7: " + kEncapsulation +
                 "/untagged: is not there; expected a node that is there (operation delete: data-missing)"},
        Case{"remove_of_what_is_there",
             kAccess,
             EditOperation::remove,
             {},
             {kAccess, kAccess + "/dot1q = 7", kEncapsulation + "/dot1q-range{7 9}",
              kEncapsulation + "/dot1q-range{20 30}"},
             {},
             ""},
        Case{"remove_of_what_is_not_there", kEncapsulation + "/untagged", EditOperation::remove, {}, {}, {}, ""}),
    [](const auto &edit) { return edit.param.name; });

TEST(Edit, leaves_what_it_does_not_touch_shared) {
  const element::Tree before = running();
  const element::Tree after = edited(before, edit_at("/config/vlan{200}", EditOperation::merge));
  EXPECT_EQ(before.find(kVpn), after.find(kVpn));
  EXPECT_EQ(before.find("/config/vlan{200}"), nullptr);
}

TEST(Edit, is_written_as_netconf_takes_it) {
  element::Tree candidate = running();
  candidate.erase(kEncapsulation + "/dot1q-range{7 9}");
  candidate.put(kAccess + "/dot1q", std::uint16_t{8});
  candidate.put(R"(/config/vlan{100}/interface{"a<b c"})");
  EXPECT_EQ(write_edit(test_schema(), edit_of(difference(running(), candidate))),
            R"(<config xmlns="urn:ietf:params:xml:ns:netconf:base:1.0">
  <config xmlns="urn:element:base">
    <vlan>
      <id>100</id>
      <interface xmlns:nc="urn:ietf:params:xml:ns:netconf:base:1.0" nc:operation="create">
        <name>a&lt;b c</name>
      </interface>
    </vlan>
  </config>
  <mpls xmlns="urn:element:mpls">
    <l2vpn-config xmlns="urn:element:l2-vpn">
      <l2vpn>
        <vpws-group>
          <name>G</name>
          <vpn>
            <name>V</name>
            <access-interface>
              <name>eth1</name>
              <encapsulation>
                <dot1q-range xmlns:nc="urn:ietf:params:xml:ns:netconf:base:1.0" nc:operation="delete">
                  <min>7</min>
                  <max>9</max>
                </dot1q-range>
              </encapsulation>
              <dot1q xmlns:nc="urn:ietf:params:xml:ns:netconf:base:1.0" nc:operation="replace">8</dot1q>
            </access-interface>
          </vpn>
        </vpws-group>
      </l2vpn>
    </l2vpn-config>
  </mpls>
</config>
)");
}

}  // namespace
