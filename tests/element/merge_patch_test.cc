#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include "drawn_configuration.h"
#include "edited_by.h"
#include "patch_writer.h"

namespace {

const Lines kRunning{"/config/vlan{100}", "/config/vlan{100}/interface{eth2}", "/config/l3-interface{l3}/vlan = 7",
                     "/config/service-port{1}/match/vlan/vlan-id/vid = 5", "/mpls/ldp/interface{l3}"};

Lines after(const std::string &text) { return edited_by(kRunning, text, "edit.json"); }

Lines without(const Lines &gone, const Lines &come = {}) {
  Lines lines;
  for (const std::string &line : kRunning) {
    if (std::find(gone.begin(), gone.end(), line) == gone.end()) lines.push_back(line);
  }
  lines.insert(lines.end(), come.begin(), come.end());
  return print(tree_of(lines));
}

TEST(MergePatch, sets_what_it_gives_and_leaves_the_rest) {
  EXPECT_EQ(after(R"({"base:config": {"igmp-snooping": [{"instance": 1, "interface": [{"name": "eth9"}]}]}})"),
            without({}, {"/config/igmp-snooping{1}", "/config/igmp-snooping{1}/interface{eth9}"}));
}

TEST(MergePatch, null_removes_a_leaf_a_list_or_a_container) {
  EXPECT_EQ(after(R"({"base:config": {"service-port": null}})"),
            without({"/config/service-port{1}/match/vlan/vlan-id/vid = 5"}));
  EXPECT_EQ(after(R"({"mpls:mpls": null})"), without({"/mpls/ldp/interface{l3}"}));
  EXPECT_EQ(edited_by({"/mpls/l2vpn-config/l2vpn/vpls-group{G}/vpn{V}/bridge-domain/dot1q = 7"},
                      R"({"mpls:mpls": {"ldp:ldp": null, "l2-vpn:l2vpn-config": {"l2vpn": null}}})", "edit.json"),
            Lines());
}

TEST(MergePatch, an_array_takes_the_place_of_the_whole_list) {
  EXPECT_EQ(
      after(R"({"base:config": {"vlan": [{"id": 7}, {"id": 2e2}]}})"),
      without({"/config/vlan{100}", "/config/vlan{100}/interface{eth2}"}, {"/config/vlan{7}", "/config/vlan{200}"}));
  EXPECT_EQ(after(R"({"base:config": {"vlan": []}})"),
            without({"/config/vlan{100}", "/config/vlan{100}/interface{eth2}"}));
}

TEST(MergePatch, may_stand_in_the_envelope_of_restconf) {
  EXPECT_EQ(after(R"({"ietf-restconf:data": {"mpls:mpls": null}})"), without({"/mpls/ldp/interface{l3}"}));
}

TEST(MergePatch, an_empty_object_changes_nothing) { EXPECT_EQ(after("{}"), without({})); }

TEST(MergePatch, members_of_other_modules_and_annotations_are_passed_over) {
  const element::EditFile file =
      parse_edits(test_schema(),
                  R"({"base:config": {"@": {"x:y": 1}, "vlan": null, "x:note": {"a": [1, 2], "b": null}}, "x:top": 3})",
                  "edit.json");
  EXPECT_EQ(file.passed_over.nodes(), 5u);
  EXPECT_EQ(file.passed_over.count_modules(), 1u);
  EXPECT_EQ(file.edits.size(), 1u);
}

class FaultOfAMergePatch : public testing::TestWithParam<FaultyEdit> {};

TEST_P(FaultOfAMergePatch, names_line_path_and_what_was_expected) {
  EXPECT_EQ(fault_of_edit(kRunning, GetParam().text, "edit.json"), GetParam().message);
}

std::string in_config(const std::string &members) { return "{\"base:config\": {\n" + members + "}}"; }

INSTANTIATE_TEST_SUITE_P(
    Json, FaultOfAMergePatch,
    testing::Values(
        FaultyEdit{
            "no_json", "{\"base:config\": }",
            "edit.json:1:17: syntax error while parsing value - unexpected '}'; expected '[', '{', or a literal"},
        FaultyEdit{"array_outermost", "[]",
                   "edit.json:1: neither XML nor a JSON object; expected an edit-config, a YANG patch or a JSON merge "
                   "patch"},
        FaultyEdit{"member_given_twice", in_config("\"vlan\": null,\n\"vlan\": []"),
                   "edit.json:3: member vlan is given twice in one object, first on line 2; expected it once"},
        FaultyEdit{"misspelled_node", in_config("\"vlna\": null"),
                   "edit.json:2: /config: node vlna is not in the data model there; expected one of service-port, "
                   "vlan, l3-interface, igmp-snooping"},
        FaultyEdit{"node_without_module", "{\"config\": null}",
                   "edit.json:1: node config is not in the data model there; expected one of base:config, mpls:mpls"},
        FaultyEdit{"derived_node", "{\"internal:internal\": null}",
                   "edit.json:1: node internal is written by the element itself; expected what an operator writes"},
        FaultyEdit{"entry_given_twice", in_config("\"vlan\": [\n{\"id\": 7},\n{\"id\": 7}]"),
                   "edit.json:4: /config/vlan{7}: given twice, first on line 3; expected each entry once"},
        FaultyEdit{"missing_key", in_config("\"vlan\": [{\"interface\": []}]"),
                   "edit.json:2: /config/vlan: entry without key id; expected all of its keys"},
        FaultyEdit{"null_in_an_entry", in_config("\"l3-interface\": [{\"name\": \"a\",\n\"vlan\": null}]"),
                   "edit.json:3: /config/l3-interface{a}/vlan: \"vlan\" with a value of another kind; expected a "
                   "number"},
        FaultyEdit{"null_in_a_list", in_config("\"vlan\": [null]"),
                   "edit.json:2: /config/vlan: \"vlan\" with a value of another kind; expected an array of objects"},
        FaultyEdit{"object_for_a_list", in_config("\"vlan\": {}"),
                   "edit.json:2: /config/vlan: \"vlan\" with a value of another kind; expected an array of objects"},
        FaultyEdit{"array_for_a_container", "{\"base:config\": []}",
                   "edit.json:1: /config: \"config\" with a value of another kind; expected an object"},
        FaultyEdit{"number_in_quotes", in_config("\"vlan\": [{\"id\": \"7\"}]"),
                   "edit.json:2: /config/vlan: \"id\" with a value of another kind; expected a number"},
        FaultyEdit{"value_out_of_range", in_config("\"vlan\": [{\"id\": 4095}]"),
                   "edit.json:2: /config/vlan/id: value \"4095\"; expected a number of 1..4094"},
        FaultyEdit{
            "value_for_a_leaf_without_one",
            in_config("\"service-port\": [{\"number\": 1, \"match\": {\"vlan\": {\"vlan-id\": {\"any\": true}}}}]"),
            "edit.json:2: /config/service-port{1}/match/vlan/vlan-id/any: \"any\" with a value of another kind; "
            "expected [null]"},
        FaultyEdit{"operation_as_annotation", in_config("\"@\": {\"ietf-netconf:operation\": \"delete\"}"),
                   "edit.json:2: /config: annotation ietf-netconf:operation; expected null for what goes, or a YANG "
                   "patch"},
        FaultyEdit{"member_beside_the_envelope", "{\"ietf-restconf:data\": {}, \"base:config\": {}}",
                   "edit.json:1: member ietf-restconf:data that is no object around all others; expected one object, "
                   "which holds the patch"}),
    [](const auto &fault) { return fault.param.name; });

RC_GTEST_PROP(MergePatchProperty, made_from_two_documents_and_applied_it_gives_the_second, ()) {
  const element::Tree before = drawn_tree();
  const element::Tree candidate = drawn_tree();
  RC_ASSERT(edited_by(print(before), write_merge_patch(before, candidate), "edit.json") == print(candidate));
}

}  // namespace
