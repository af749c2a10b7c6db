#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <nlohmann/json.hpp>

#include "tests/cli/commit_folder.h"

namespace {

std::string edit(const std::string &content) {
  return "<config xmlns=\"urn:ietf:params:xml:ns:netconf:base:1.0\" "
         "xmlns:nc=\"urn:ietf:params:xml:ns:netconf:base:1.0\">\n<config xmlns=\"urn:element:base\">\n" +
         content + "\n</config></config>\n";
}

/// A folder whose running configuration has VLAN 5, with an edit in place of the candidate.
class EditInput : public testing::Test {
 protected:
  EditInput() {
    folder.configure(R"("base:config": {"vlan": [{"id": 5}]})", "");
    folder.remove("candidate.json");
    folder.write("edit.xml", edit("<vlan><id>7</id></vlan>"));
  }

  Outcome run(std::vector<std::string> arguments) const {
    arguments.insert(arguments.begin() + 1, folder.path());
    return run_with_answers(arguments);
  }

  std::string content_of(const std::string &name) const {
    std::ifstream file(folder.file(name));
    return {std::istreambuf_iterator<char>(file), {}};
  }

  const CommitFolder folder;
};

TEST_F(EditInput, check_decides_what_a_folders_edit_makes_of_the_running_configuration) {
  const Outcome outcome = run({"check"});
  EXPECT_EQ(outcome.err, "");
  EXPECT_TRUE(outcome.out.starts_with(
      "summary: no VPN, attachment, neighbour or member is touched\nchanges: 1\n+ /config/vlan{7}\n"))
      << outcome.out;
}

TEST_F(EditInput, edits_are_applied_in_their_order) {
  folder.write("second.xml", edit("<vlan nc:operation=\"delete\"><id>7</id></vlan><vlan><id>8</id></vlan>"));
  const Outcome outcome =
      run({"check", "--edit", folder.file("edit.xml"), "--edit", folder.file("second.xml"), "--format=json"});
  EXPECT_TRUE(outcome.err.starts_with(
      "summary: no VPN, attachment, neighbour or member is touched\nchanges: 1\n+ /config/vlan{8}\n"))
      << outcome.err;
  EXPECT_EQ(nlohmann::json::parse(verdict_in(outcome.out)).at("inputs").at("edits"),
            nlohmann::json::array({folder.file("edit.xml"), folder.file("second.xml")}));
}

TEST_F(EditInput, a_folder_may_hold_an_edit_in_json) {
  folder.remove("edit.xml");
  folder.write("edit.json", R"({"base:config": {"vlan": [{"id": 5}, {"id": 9}]}})");
  EXPECT_TRUE(run({"check"}).out.starts_with(
      "summary: no VPN, attachment, neighbour or member is touched\nchanges: 1\n+ /config/vlan{9}\n"));
  folder.write("edit.json", R"({"ietf-yang-patch:yang-patch": {"patch-id": "p", "edit": [
{"edit-id": "a", "operation": "remove", "target": "/base:config/vlan=5"}]}})");
  EXPECT_TRUE(run({"check"}).out.starts_with(
      "summary: no VPN, attachment, neighbour or member is touched\nchanges: 1\n- /config/vlan{5}\n"));
  folder.write("edit.xml", edit(""));
  EXPECT_EQ(run({"check"}).err,
            "vpnval: " + folder.path() + ": holds edit.xml and edit.json; one of them was expected\n");
}

TEST_F(EditInput, modules_that_are_passed_over_are_listed_with_the_edit_that_holds_them) {
  folder.write("second.json", R"({"other:note": {"a": 1}})");
  folder.write("edit.xml", edit("<vlan><id>7</id></vlan><x xmlns=\"urn:x\"/>"));
  const Outcome outcome =
      run_with_answers({"apply", "--running", folder.file("running.json"), "--edit", folder.file("edit.xml"), "--edit",
                        folder.file("second.json"), "--list-foreign"});
  EXPECT_EQ(outcome.err, "passed over: 3 nodes of 2 modules in candidate\n  " + folder.file("edit.xml") +
                             ":3: 1 node of urn:x\n  " + folder.file("second.json") + ":1: 2 nodes of other\n");
}

TEST_F(EditInput, other_commands_take_an_edit_too) {
  EXPECT_EQ(run({"show", "/config"}).out, "/config/vlan{5}\n/config/vlan{7}\n");
  for (const std::string command : {"headroom", "plan", "map"}) {
    std::vector<std::string> arguments{command};
    if (command == "plan") arguments.insert(arguments.end(), {"-o", folder.file("steps")});
    if (command == "map") arguments.insert(arguments.end(), {"-o", folder.file("map.svg")});
    arguments.insert(arguments.begin() + 1, folder.path());
    EXPECT_EQ(run_with_library(arguments).status, 0) << command;
  }
}

TEST_F(EditInput, apply_writes_the_candidate) {
  const std::string candidate = R"({
  "base:config": {
    "vlan": [
      {
        "id": 5
      },
      {
        "id": 7
      }
    ]
  }
}
)";
  EXPECT_EQ(run({"apply"}).out, candidate);
  EXPECT_EQ(run({"apply", "-o", folder.file("candidate.json")}).out, "");
  EXPECT_EQ(content_of("candidate.json"), candidate);
  EXPECT_EQ(run_with_answers(
                {"apply", "--running", folder.file("running.json"), "--edit", folder.file("edit.xml"), "--format=xml"})
                .out,
            R"(<config xmlns="urn:element:base">
  <vlan>
    <id>5</id>
  </vlan>
  <vlan>
    <id>7</id>
  </vlan>
</config>
)");
}

TEST_F(EditInput, nodes_of_other_modules_are_passed_over_and_refused_where_that_is_asked_for) {
  folder.write("edit.xml", edit("<vlan><id>7</id></vlan><x xmlns=\"urn:x\"/>"));
  EXPECT_TRUE(run({"check"}).out.starts_with(
      "summary: no VPN, attachment, neighbour or member is touched\npassed over: 1 node of 1 module in candidate\n"));
  EXPECT_EQ(run({"check", "--strict"}).err,
            "vpnval: " + folder.file("edit.xml") +
                ":3: /config: foreign node x of namespace \"urn:x\"; expected nodes of the element's own modules "
                "alone\n");
}

struct Refusal {
  const char *name;
  std::vector<std::string> arguments;  ///< with "F/" for the folder
  int status;
  std::string error;  ///< likewise
};

void PrintTo(const Refusal &refusal, std::ostream *out) { *out << refusal.name; }

class RefusedEdit : public EditInput, public testing::WithParamInterface<Refusal> {
 protected:
  std::string in_folder(std::string text) const {
    const std::string path = folder.path() + "/";
    for (std::size_t at = text.find("F/"); at != std::string::npos; at = text.find("F/", at + path.size())) {
      text.replace(at, 2, path);
    }
    return text;
  }
};

TEST_P(RefusedEdit, says_where_and_what_was_expected) {
  folder.write("exists.xml", edit("<vlan nc:operation=\"create\"><id>5</id></vlan>"));
  folder.write("missing.xml", edit("<vlan nc:operation=\"delete\"><id>6</id></vlan>"));
  folder.write("two.xml", edit("<vlan><id>7</id></vlan>") + edit("<l3-interface><name>l3</name></l3-interface>"));
  folder.write("incomplete.xml", edit("<l3-interface><name>l3</name></l3-interface>"));
  folder.write("patch.json", R"({"ietf-yang-patch:yang-patch": {"patch-id": "p"}})");
  folder.write("patch.xml", "<yang-patch xmlns=\"urn:ietf:params:xml:ns:yang:ietf-yang-patch\"/>");
  folder.write("merge.json", R"({"base:config": {"vlan": null}})");
  std::vector<std::string> arguments;
  for (const std::string &argument : GetParam().arguments) arguments.push_back(in_folder(argument));
  const Outcome outcome = run_with_answers(arguments);
  EXPECT_EQ(outcome.err, in_folder(GetParam().error));
  EXPECT_EQ(outcome.status, GetParam().status);
  EXPECT_EQ(outcome.out, "");
}

INSTANTIATE_TEST_SUITE_P(
    Edits, RefusedEdit,
    testing::Values(
        Refusal{"what_exists_is_created",
                {"check", "F/", "--edit", "F/exists.xml"},
                65,
                "vpnval: F/exists.xml:3: /config/vlan{5}: is there already; expected a node that is not there "
                "(operation create: data-exists)\n"},
        Refusal{"what_is_missing_is_deleted",
                {"apply", "F/", "--edit", "F/missing.xml"},
                65,
                "vpnval: F/missing.xml:3: /config/vlan{6}: is not there; expected a node that is there (operation "
                "delete: data-missing)\n"},
        Refusal{"the_result_lacks_a_leaf",
                {"check", "F/", "--edit", "F/incomplete.xml"},
                65,
                "vpnval: F/incomplete.xml:3: /config/l3-interface{l3}: \"vlan\" is missing; expected it to be set, "
                "because it is mandatory\n"},
        Refusal{"the_result_of_a_second_edit_lacks_a_leaf",
                {"check", "F/", "--edit", "F/two.xml"},
                65,
                "vpnval: F/two.xml:7: /config/l3-interface{l3}: \"vlan\" is missing; expected it to be set, because it "
                "is mandatory\n"},
        Refusal{"an_edit_as_candidate",
                {"check", "F/", "--candidate", "F/exists.xml"},
                65,
                "vpnval: F/exists.xml:3: /config: an edit was given as a configuration (attribute operation); expected "
                "a whole configuration; an edit is given with --edit\n"},
        Refusal{"a_yang_patch_as_candidate",
                {"check", "F/", "--candidate", "F/patch.json"},
                65,
                "vpnval: F/patch.json:1: an edit was given as a configuration (member ietf-yang-patch:yang-patch); "
                "expected a whole configuration; an edit is given with --edit\n"},
        Refusal{"a_yang_patch_in_xml_as_candidate",
                {"check", "F/", "--candidate", "F/patch.xml"},
                65,
                "vpnval: F/patch.xml:1: an edit was given as a configuration; expected a whole configuration; an edit "
                "is given with --edit\n"},
        Refusal{"a_merge_patch_as_candidate",
                {"check", "F/", "--candidate", "F/merge.json"},
                65,
                "vpnval: F/merge.json:1: /config: \"vlan\" is null; expected what is configured; a merge patch is "
                "given with --edit\n"},
        Refusal{"no_such_file",
                {"apply", "F/", "--edit", "F/nowhere.xml"},
                66,
                "vpnval: F/nowhere.xml: cannot be read: No such file or directory; expected a readable file\n"},
        Refusal{"edit_beside_candidate",
                {"check", "F/", "--candidate", "F/edit.xml", "--edit", "F/edit.xml"},
                64,
                "vpnval: --edit beside --candidate; expected one of them\n"},
        Refusal{"apply_without_an_edit",
                {"apply", "--running", "F/running.json"},
                64,
                "vpnval: a directory was expected, or --running and --edit\n"},
        Refusal{"an_output_that_cannot_be_written",
                {"apply", "F/", "-o", "F/no/such/folder"},
                73,
                "vpnval: F/no/such/folder: cannot be written: No such file or directory\n"}),
    [](const auto &refusal) { return refusal.param.name; });

TEST_F(EditInput, an_edit_beside_a_candidate_in_a_folder_is_refused) {
  folder.write("candidate.json", "{}");
  EXPECT_EQ(run({"check"}).err,
            "vpnval: " + folder.path() + ": holds candidate.json and edit.xml; one of them was expected\n");
  EXPECT_EQ(run({"check", "--candidate", folder.file("candidate.json")}).status, 65);
}

}  // namespace
