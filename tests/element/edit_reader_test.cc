#include "element/edit/edit_reader.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include "drawn_configuration.h"
#include "edit_writer.h"
#include "edited_by.h"
#include "element/datastore/difference.h"
#include "element/edit/edit_of_difference.h"

namespace {

Lines after(const Lines &running, const std::string &text) { return edited_by(running, text, "edit.xml"); }

std::string config(const std::string &content) {
  return R"(<config xmlns="urn:ietf:params:xml:ns:netconf:base:1.0" xmlns:nc="urn:ietf:params:xml:ns:netconf:base:1.0">
<config xmlns="urn:element:base">
)" + content +
         "</config>\n</config>\n";
}

std::string edit_config(const std::string &default_operation, const std::string &content) {
  return R"(<rpc message-id="1" xmlns="urn:ietf:params:xml:ns:netconf:base:1.0"><edit-config>
<target><candidate/></target>)" +
         default_operation + config(content) + "</edit-config></rpc>]]>]]>\n";
}

const Lines kOneMember{"/config/vlan{100}/interface{eth2}"};
const char *const kNewMember = "<vlan><id>100</id>\n<interface><name>eth3</name></interface></vlan>\n";

TEST(EditReader, a_bare_config_is_merged) {
  EXPECT_EQ(after(kOneMember, config(kNewMember)),
            (Lines{"/config/vlan{100}", "/config/vlan{100}/interface{eth2}", "/config/vlan{100}/interface{eth3}"}));
}

TEST(EditReader, nodes_without_a_wrapper_are_merged) {
  EXPECT_EQ(after({}, R"(<config xmlns="urn:element:base"><vlan><id>7</id></vlan></config>
<mpls xmlns="urn:element:mpls"><ldp xmlns="urn:element:ldp"><interface><name>l3</name></interface></ldp></mpls>)"),
            (Lines{"/config/vlan{7}", "/mpls/ldp/interface{l3}"}));
}

TEST(EditReader, an_rpc_with_an_edit_config_has_its_default_operation) {
  EXPECT_EQ(after(kOneMember, edit_config("<default-operation>replace</default-operation>", kNewMember)),
            (Lines{"/config/vlan{100}", "/config/vlan{100}/interface{eth3}"}));
  EXPECT_EQ(after(kOneMember, edit_config("<default-operation>none</default-operation>",
                                          "<vlan><id>100</id><interface nc:operation='delete'><name>eth2</name>"
                                          "</interface></vlan>")),
            (Lines{"/config/vlan{100}"}));
}

TEST(EditReader, edits_in_a_row_are_applied_in_their_order) {
  EXPECT_EQ(after(kOneMember, edit_config("", "<vlan nc:operation='delete'><id>100</id></vlan>") +
                                  edit_config("", "<vlan nc:operation='create'><id>100</id></vlan>")),
            (Lines{"/config/vlan{100}"}));
}

TEST(EditReader, what_is_deleted_needs_no_value) {
  EXPECT_EQ(after({"/config/l3-interface{l3}/vlan = 7"},
                  config("<l3-interface><name>l3</name><vlan nc:operation='delete'/></l3-interface>")),
            (Lines{"/config/l3-interface{l3}"}));
}

TEST(EditReader, nodes_of_other_modules_are_passed_over_and_counted) {
  const element::EditFile file = parse_edits(
      test_schema(), config("<vlan><id>7</id><note xmlns='urn:other'><a/></note></vlan><log xmlns='urn:other'/>"), "");
  EXPECT_EQ(file.passed_over.nodes(), 3u);
  EXPECT_EQ(file.edits.size(), 1u);
}

class FaultOfAnEdit : public testing::TestWithParam<FaultyEdit> {};

TEST_P(FaultOfAnEdit, names_line_path_and_what_was_expected) {
  EXPECT_EQ(fault_of_edit({"/config/vlan{100}/interface{eth2}"}, GetParam().text, "edit.xml"), GetParam().message);
}

INSTANTIATE_TEST_SUITE_P(
    Xml, FaultOfAnEdit,
    testing::Values(
        FaultyEdit{
            "misspelled_node", config("<vlan><id>7</id><interfaec/></vlan>"),
            "edit.xml:3: /config/vlan{7}: node interfaec is not in the data model there; expected one of id, interface"},
        FaultyEdit{"derived_node", R"(<internal xmlns="urn:element:internal"/>)",
                   "edit.xml:1: node internal is written by the element itself; expected what an operator writes"},
        FaultyEdit{
            "node_without_namespace", "<config><vlan/></config>",
            "edit.xml:1: node vlan is not in the data model there; expected one of config xmlns=\"urn:element:base\", mpls xmlns=\"urn:element:mpls\""},
        FaultyEdit{
            "unknown_operation", config("<vlan nc:operation='destroy'><id>7</id></vlan>"),
            "edit.xml:3: /config/vlan: operation \"destroy\"; expected merge, replace, create, delete or remove"},
        FaultyEdit{
            "operation_without_namespace", config("<vlan operation='delete'><id>100</id></vlan>"),
            "edit.xml:3: /config/vlan: attribute operation without namespace; expected operation in the namespace urn:ietf:params:xml:ns:netconf:base:1.0"},
        FaultyEdit{"value_out_of_range", config("<vlan><id>4095</id></vlan>"),
                   "edit.xml:3: /config/vlan/id: value \"4095\"; expected a number of 1..4094"},
        FaultyEdit{"missing_key", config("<vlan nc:operation='delete'/>"),
                   "edit.xml:3: /config/vlan: entry without key id; expected all of its keys"},
        FaultyEdit{"text_in_a_container", config("<vlan><id>7</id>seven</vlan>"),
                   "edit.xml:3: /config/vlan: text \"seven\"; expected elements only"},
        FaultyEdit{"element_in_a_leaf", config("<l3-interface><name>a</name><vlan><id/></vlan></l3-interface>"),
                   "edit.xml:3: /config/l3-interface{a}/vlan: element id in a leaf; expected a value"},
        FaultyEdit{
            "whole_configuration", "<data xmlns='urn:ietf:params:xml:ns:netconf:base:1.0'/>",
            "edit.xml:1: data holds a whole configuration, no edit; expected an edit-config, a config or the nodes of an edit"},
        FaultyEdit{"other_rpc", "<rpc xmlns='urn:ietf:params:xml:ns:netconf:base:1.0'><commit/></rpc>",
                   "edit.xml:1: rpc commit; expected edit-config alone"},
        FaultyEdit{"unknown_default_operation", edit_config("<default-operation>create</default-operation>", ""),
                   "edit.xml:2: default-operation \"create\"; expected merge, replace or none"},
        FaultyEdit{"edit_config_without_config", "<edit-config xmlns='urn:ietf:params:xml:ns:netconf:base:1.0'/>",
                   "edit.xml:1: edit-config without config; expected the edit itself"},
        FaultyEdit{"element_of_another_module", "<interfaces xmlns='urn:other'/>",
                   "edit.xml:1: element interfaces; expected an edit-config, a config or the nodes of an edit"},
        FaultyEdit{"nothing", "<!-- later -->",
                   "edit.xml: no edit; expected an edit-config, a config or the nodes of an edit"}),
    [](const auto &fault) { return fault.param.name; });

RC_GTEST_PROP(EditProperty, written_and_read_back_it_gives_the_new_configuration, ()) {
  const element::Tree before = drawn_tree();
  const element::Tree candidate = drawn_tree();
  const std::string text = write_edit(test_schema(), edit_of(difference(before, candidate)));
  RC_ASSERT(after(print(before), text) == print(candidate));
}

}  // namespace
