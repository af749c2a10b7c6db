#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include "drawn_configuration.h"
#include "edited_by.h"
#include "element/datastore/difference.h"
#include "element/edit/edit_of_difference.h"
#include "patch_writer.h"

namespace {

const Lines kRunning{"/config/vlan{100}", "/config/vlan{100}/interface{eth2}", "/config/l3-interface{l3}/vlan = 7"};

std::string xml_patch(const std::string &edits) {
  return "<yang-patch xmlns=\"urn:ietf:params:xml:ns:yang:ietf-yang-patch\">\n<patch-id>p</patch-id>\n" + edits +
         "</yang-patch>\n";
}

std::string json_patch(const std::string &edits) {
  return "{\"ietf-yang-patch:yang-patch\": {\"patch-id\": \"p\", \"comment\": \"c\", \"edit\": [\n" + edits + "]}}\n";
}

/// The same edit in both formats. The value is left out where it is empty.
struct PatchCase {
  const char *name;
  std::string operation;
  std::string target;
  std::string json_value;
  std::string xml_value;
  Lines result;
  std::string error{};  ///< behind the file's name and line
};

void PrintTo(const PatchCase &patch, std::ostream *out) { *out << patch.name; }

class YangPatchOperation : public testing::TestWithParam<PatchCase> {
 protected:
  static void expect(const std::string &text, const std::string &file, std::size_t line) {
    const PatchCase &patch = GetParam();
    if (patch.error.empty()) {
      EXPECT_EQ(edited_by(kRunning, text, file), print(tree_of(patch.result)));
    } else {
      EXPECT_EQ(fault_of_edit(kRunning, text, file), file + ":" + std::to_string(line) + ": " + patch.error);
    }
  }
};

TEST_P(YangPatchOperation, of_one_edit_has_its_result_or_its_error_in_json) {
  const PatchCase &patch = GetParam();
  const std::string value = patch.json_value.empty() ? "" : ", \"value\": " + patch.json_value;
  expect(json_patch("{\"edit-id\": \"e1\", \"operation\": \"" + patch.operation + "\", \"target\": \"" + patch.target +
                    "\"" + value + "}"),
         "edit.json", 2);
}

TEST_P(YangPatchOperation, of_one_edit_has_its_result_or_its_error_in_xml) {
  const PatchCase &patch = GetParam();
  const std::string value = patch.xml_value.empty() ? "" : "<value>" + patch.xml_value + "</value>";
  expect(xml_patch("<edit><edit-id>e1</edit-id><operation>" + patch.operation + "</operation><target>" + patch.target +
                   "</target>" + value + "</edit>\n"),
         "edit.xml", 3);
}

const std::string kVlan7Json = R"({"base:vlan": [{"id": 7, "interface": [{"name": "a/b,c"}]}]})";
const std::string kVlan7Xml =
    R"(<vlan xmlns="urn:element:base"><id>7</id><interface><name>a/b,c</name></interface></vlan>)";

Lines running_and(const Lines &lines) {
  Lines all = kRunning;
  all.insert(all.end(), lines.begin(), lines.end());
  return all;
}

INSTANTIATE_TEST_SUITE_P(
    BothFormats, YangPatchOperation,
    testing::Values(
        PatchCase{"create", "create", "/base:config/vlan=7", kVlan7Json, kVlan7Xml,
                  running_and({"/config/vlan{7}/interface{a/b,c}"})},
        PatchCase{"create_of_what_is_there",
                  "create",
                  "/base:config/vlan=100",
                  R"({"vlan": [{"id": 100}]})",
                  R"(<vlan xmlns="urn:element:base"><id>100</id></vlan>)",
                  {},
                  "/config/vlan{100}: is there already (edit \"e1\"); expected a node that is not there (operation "
                  "create: data-exists)"},
        PatchCase{"create_below_what_is_missing",
                  "create",
                  "/base:config/vlan=7/interface=e",
                  R"({"interface": [{"name": "e"}]})",
                  R"(<interface xmlns="urn:element:base"><name>e</name></interface>)",
                  {},
                  "/config/vlan{7}: is not there (edit \"e1\"); expected a node that is there (operation none: "
                  "data-missing)"},
        PatchCase{"delete",
                  "delete",
                  "/base:config/vlan=100/interface=eth2",
                  "",
                  "",
                  {"/config/vlan{100}", "/config/l3-interface{l3}/vlan = 7"}},
        PatchCase{"delete_of_what_is_missing",
                  "delete",
                  "/base:config/vlan=7",
                  "",
                  "",
                  {},
                  "/config/vlan{7}: is not there (edit \"e1\"); expected a node that is there (operation delete: "
                  "data-missing)"},
        PatchCase{"merge", "merge", "/base:config/vlan=100", R"({"vlan": [{"id": 100, "interface": [{"name": "e"}]}]})",
                  R"(<vlan xmlns="urn:element:base"><id>100</id><interface><name>e</name></interface></vlan>)",
                  running_and({"/config/vlan{100}/interface{e}"})},
        PatchCase{"merge_of_the_whole_configuration", "merge", "/", R"({"base:config": {"vlan": [{"id": 8}]}})",
                  R"(<config xmlns="urn:element:base"><vlan><id>8</id></vlan></config>)",
                  running_and({"/config/vlan{8}"})},
        PatchCase{"remove_of_what_is_missing", "remove", "/base:config/vlan=7", "", "", kRunning},
        PatchCase{"remove_of_a_container", "remove", "/base:config", "", "", {}},
        PatchCase{"replace_of_an_entry",
                  "replace",
                  "/base:config/vlan=100",
                  R"({"vlan": [{"id": 100, "interface": [{"name": "e"}]}]})",
                  R"(<vlan xmlns="urn:element:base"><id>100</id><interface><name>e</name></interface></vlan>)",
                  {"/config/vlan{100}/interface{e}", "/config/l3-interface{l3}/vlan = 7"}},
        PatchCase{"replace_of_a_leaf",
                  "replace",
                  "/base:config/l3-interface=l3/vlan",
                  R"({"vlan": 8})",
                  R"(<vlan xmlns="urn:element:base">8</vlan>)",
                  {"/config/vlan{100}/interface{eth2}", "/config/l3-interface{l3}/vlan = 8"}},
        PatchCase{"encoded_key", "merge", "/base:config/vlan=100/interface=a%2Fb%2cc",
                  R"({"interface": [{"name": "a/b,c"}]})",
                  R"(<interface xmlns="urn:element:base"><name>a/b,c</name></interface>)",
                  running_and({"/config/vlan{100}/interface{a/b,c}"})},
        PatchCase{"insert",
                  "insert",
                  "/base:config/vlan=7",
                  kVlan7Json,
                  kVlan7Xml,
                  {},
                  "operation insert, but no list is ordered by its operator (edit \"e1\"); expected create, merge or "
                  "replace"},
        PatchCase{"move",
                  "move",
                  "/base:config/vlan=100",
                  "",
                  "",
                  {},
                  "operation move, but no list is ordered by its operator (edit \"e1\"); expected create, merge or "
                  "replace"},
        PatchCase{"unknown_operation",
                  "destroy",
                  "/base:config/vlan=7",
                  "",
                  "",
                  {},
                  "operation \"destroy\" (edit \"e1\"); expected one of create, delete, insert, merge, move, remove, "
                  "replace"},
        PatchCase{"no_value",
                  "create",
                  "/base:config/vlan=7",
                  "",
                  "",
                  {},
                  "/config/vlan{7}: operation create without value (edit \"e1\"); expected the target's content"},
        PatchCase{"value_of_a_deletion",
                  "remove",
                  "/base:config/vlan=7",
                  kVlan7Json,
                  kVlan7Xml,
                  {},
                  "/config/vlan{7}: value with operation remove (edit \"e1\"); expected the target alone"},
        PatchCase{"deletion_of_everything",
                  "delete",
                  "/",
                  "",
                  "",
                  {},
                  "the whole configuration as target of a deletion (edit \"e1\"); expected a node of it"},
        PatchCase{"value_of_another_entry",
                  "create",
                  "/base:config/vlan=8",
                  kVlan7Json,
                  kVlan7Xml,
                  {},
                  "/config/vlan{8}: value of another node than the target (edit \"e1\"); expected the target alone, in "
                  "its parent's place"},
        PatchCase{"relative_target",
                  "remove",
                  "base:config",
                  "",
                  "",
                  {},
                  "target \"base:config\" (edit \"e1\"); expected a path from the top, as /base:config/vlan=5"},
        PatchCase{"target_without_module",
                  "remove",
                  "/config",
                  "",
                  "",
                  {},
                  "node config is not in the data model there (edit \"e1\"); expected one of base:config, mpls:mpls"},
        PatchCase{"target_with_a_wrong_escape",
                  "remove",
                  "/base:config/vlan=100/interface=a%2",
                  "",
                  "",
                  {},
                  "/config/vlan{100}/interface: target \"/base:config/vlan=100/interface=a%2\" (edit \"e1\"); expected "
                  "a path from the top, as /base:config/vlan=5"},
        PatchCase{
            "target_without_key",
            "remove",
            "/base:config/vlan",
            "",
            "",
            {},
            "/config/vlan: target \"/base:config/vlan\" without all keys of vlan (edit \"e1\"); expected vlan=id"},
        PatchCase{"target_with_a_key_too_many",
                  "remove",
                  "/base:config/vlan=1,2",
                  "",
                  "",
                  {},
                  "/config/vlan: target \"/base:config/vlan=1,2\" without all keys of vlan (edit \"e1\"); expected "
                  "vlan=id"},
        PatchCase{"container_with_a_key",
                  "remove",
                  "/base:config=1",
                  "",
                  "",
                  {},
                  "/config: config with a key (edit \"e1\"); expected no key"},
        PatchCase{"target_is_a_key",
                  "remove",
                  "/base:config/vlan=100/id",
                  "",
                  "",
                  {},
                  "/config/vlan{100}: target id is a key of an entry (edit \"e1\"); expected the entry itself"},
        PatchCase{"key_out_of_range",
                  "remove",
                  "/base:config/vlan=4095",
                  "",
                  "",
                  {},
                  "/config/vlan/id: value \"4095\" (edit \"e1\"); expected a number of 1..4094"}),
    [](const auto &patch) { return patch.param.name; });

class FaultOfAYangPatch : public testing::TestWithParam<FaultyEdit> {};

TEST_P(FaultOfAYangPatch, names_line_path_and_what_was_expected) {
  EXPECT_EQ(fault_of_edit(kRunning, GetParam().text, "p"), GetParam().message);
}

INSTANTIATE_TEST_SUITE_P(
    BothFormats, FaultOfAYangPatch,
    testing::Values(
        FaultyEdit{"no_edit", json_patch(""), "p:1: yang-patch without an edit; expected one edit at least"},
        FaultyEdit{"no_patch_id", R"({"ietf-yang-patch:yang-patch": {"edit": []}})",
                   "p:1: \"patch-id\" is missing; expected it to be set, because it is mandatory"},
        FaultyEdit{"no_edit_id", json_patch("{\"operation\": \"remove\"}"),
                   "p:2: \"edit-id\" is missing; expected it to be set, because it is mandatory"},
        FaultyEdit{"no_operation", xml_patch("<edit><edit-id>e1</edit-id></edit>"),
                   "p:3: \"operation\" is missing (edit \"e1\"); expected it to be set, because it is mandatory"},
        FaultyEdit{"no_target", xml_patch("<edit><edit-id>e1</edit-id><operation>remove</operation></edit>"),
                   "p:3: \"target\" is missing (edit \"e1\"); expected it to be set, because it is mandatory"},
        FaultyEdit{"edit_id_given_twice",
                   json_patch("{\"edit-id\": \"a\", \"operation\": \"remove\", \"target\": \"/base:config\"},\n"
                              "{\"edit-id\": \"a\", \"operation\": \"remove\", \"target\": \"/base:config\"}"),
                   "p:3: edit-id \"a\" is given twice, first on line 2; expected an id of its own for each edit"},
        FaultyEdit{"point_without_insert",
                   json_patch("{\"edit-id\": \"a\", \"operation\": \"create\", \"where\": \"first\"}"),
                   "p:2: place to insert with operation create (edit \"a\"); expected none"},
        FaultyEdit{"unknown_node_of_an_edit", xml_patch("<edit><id>a</id></edit>"),
                   "p:3: node id is not in a YANG patch there; expected one of edit-id, operation, target, point, "
                   "where, value"},
        FaultyEdit{"unknown_node_of_a_patch", R"({"ietf-yang-patch:yang-patch": {"patch_id": "p"}})",
                   "p:1: node patch_id is not in a YANG patch there; expected one of patch-id, comment, edit"},
        FaultyEdit{"leaf_given_twice", xml_patch("<edit><edit-id>a</edit-id>\n<edit-id>b</edit-id></edit>"),
                   "p:4: \"edit-id\" is given twice, first on line 3; expected it once"},
        FaultyEdit{"member_beside_the_patch", R"({"ietf-yang-patch:yang-patch": {}, "base:config": {}})",
                   "p:1: member base:config beside a YANG patch; expected ietf-yang-patch:yang-patch"},
        FaultyEdit{"element_behind_the_patch", xml_patch("") + "<config xmlns=\"urn:element:base\"/>",
                   "p:4: an element behind a YANG patch; expected the patch alone"},
        FaultyEdit{"edit_that_is_no_array", R"({"ietf-yang-patch:yang-patch": {"patch-id": "p", "edit": {}}})",
                   "p:1: \"edit\" of a YANG patch with a value of another kind; expected an array of objects"},
        FaultyEdit{"id_that_is_a_number", json_patch("{\"edit-id\": 1}"),
                   "p:2: \"edit-id\" of a YANG patch with a value of another kind; expected text in quotes"},
        FaultyEdit{"value_that_is_no_object",
                   json_patch("{\"edit-id\": \"a\", \"operation\": \"create\", \"target\": \"/\", \"value\": 1}"),
                   "p:2: value that is no object (edit \"a\"); expected an object, which holds the target"},
        FaultyEdit{"operation_inside_a_value",
                   xml_patch("<edit><edit-id>a</edit-id><operation>merge</operation><target>/</target><value>"
                             "<config xmlns='urn:element:base' xmlns:nc='urn:ietf:params:xml:ns:netconf:base:1.0' "
                             "nc:operation='delete'/></value></edit>"),
                   "p:3: /config: operation inside a value (edit \"a\"); expected the edit's own operation alone"}),
    [](const auto &fault) { return fault.param.name; });

TEST(YangPatch, edits_are_applied_in_their_order) {
  EXPECT_EQ(edited_by({}, json_patch(R"({"edit-id": "a", "operation": "create", "target": "/base:config/vlan=7",
 "value": {"vlan": [{"id": 7}]}},
{"edit-id": "b", "operation": "create", "target": "/base:config/vlan=7/interface=e",
 "value": {"interface": [{"name": "e"}]}})"),
                      "edit.json"),
            (Lines{"/config/vlan{7}", "/config/vlan{7}/interface{e}"}));
}

RC_GTEST_PROP(YangPatchProperty, made_from_a_difference_and_applied_it_gives_the_new_configuration, ()) {
  const element::Tree before = drawn_tree();
  const element::Tree candidate = drawn_tree();
  const element::Edit edit = edit_of(difference(before, candidate));
  if (edit.nodes.empty()) return;
  for (const element::InputFormat format : {element::InputFormat::json, element::InputFormat::xml}) {
    RC_ASSERT(edited_by(print(before), write_yang_patch(test_schema(), edit, format), "edit") == print(candidate));
  }
}

}  // namespace
