#include "cli/commands/check_command.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "source_dir.h"
#include "tests/cli/commit_folder.h"
#include "tests/cli/reader.h"
#include "tests/support/build_under_test.h"

namespace {

const std::string neighbour = R"(, "neighbor": [{"address": "192.0.2.1", "pw-id": 7}])";

/// The text with the build id of this build left out.
std::string without_build_id(std::string text) {
  const std::string label = "build id ";
  const std::size_t at = text.find(label);
  if (at != std::string::npos) text.replace(at + label.size(), text.find('\n', at) - at - label.size(), "ID");
  return text;
}

const std::string decided_by = "decided by " + answering_plugin_file() + ", build id ID\n";

class CheckCommand : public testing::Test {
 protected:
  Outcome check(std::vector<std::string> options = {}) {
    options.insert(options.begin(), {"check", folder.path()});
    return run_with_answers(options);
  }

  /// The verdict without a search for what draws its messages.
  Outcome verdict(std::vector<std::string> options = {}) {
    options.insert(options.end(), {"--budget", "0"});
    return check(options);
  }

  /// A VPN is added: vpn_overflow_valp accepts, vpn_name_valp warns.
  void add_vpn() { folder.configure(vpws_group(vpn("east")), vpws_group(vpn("east") + "," + vpn("west"))); }

  /// A VPN with a neighbour is added: vpn_overflow_valp accepts, vpn_name_valp warns, vpn_peer_valp rejects.
  void add_vpn_with_neighbour() {
    folder.configure(vpws_group(vpn("east")), vpws_group(vpn("east") + "," + vpn("west", neighbour)));
  }

  /// A neighbour and a VLAN member are added: vpn_peer_valp rejects before vlm_memb_valp is asked.
  void add_neighbour_and_member() {
    folder.configure(vpws_group(vpn("east")), vpws_group(vpn("east", neighbour)) + "," + vlan_member("ge-1"));
  }

  CommitFolder folder;
};

TEST_F(CheckCommand, nothing_changed_is_accepted_and_asks_nothing) {
  const Outcome outcome = check();
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(without_build_id(outcome.out),
            "summary: nothing to commit\n"
            "changes: 0\n"
            "\n"
            "validation points fired: 0\n"
            "\n"
            "commit accepted: 0 of 0 points asked, 0 accepted, 0 with a warning, 0 rejected\n" +
                decided_by);
  EXPECT_EQ(outcome.err, "");
}

TEST_F(CheckCommand, a_warning_is_shown_and_accepted) {
  add_vpn();
  const Outcome outcome = verdict();
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(without_build_id(outcome.out),
            "summary: VPNs 1 added\n"
            "changes: 1\n"
            "~ /mpls/l2vpn-config/l2vpn/vpws-group{metro}\n"
            "  + vpn{west}\n"
            "\n"
            "validation points fired: 2\n"
            "  vpn_name_valp at /mpls/l2vpn-config/l2vpn/vpws-group{metro}: warning: this name is hard to read\n"
            "  vpn_overflow_valp at /mpls/l2vpn-config/l2vpn/vpws-group{metro}/vpn{west}: accepted\n"
            "\n"
            "commit accepted with warnings: 2 of 2 points asked, 1 accepted, 1 with a warning, 0 rejected\n" +
                decided_by);
}

TEST_F(CheckCommand, fail_on_warn_changes_the_status_of_warnings_alone) {
  EXPECT_EQ(check({"--fail-on-warn"}).status, 0);
  add_vpn();
  const Outcome warned = check({"--fail-on-warn"});
  EXPECT_EQ(warned.status, 2);
  EXPECT_EQ(warned.out, check().out);
  add_vpn_with_neighbour();
  EXPECT_EQ(check({"--fail-on-warn"}).status, 1);
}

TEST_F(CheckCommand, a_rejection_ends_the_commit) {
  add_neighbour_and_member();
  const Outcome outcome = verdict();
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(without_build_id(outcome.out),
            "summary: neighbours 1 added; members 1 added\n"
            "changes: 4\n"
            "+ /config/vlan{100}\n"
            "  + interface{ge-1}\n"
            "~ /mpls/l2vpn-config/l2vpn/vpws-group{metro}\n"
            "  + vpn{east}/neighbor{192.0.2.1}\n"
            "  + vpn{east}/neighbor{192.0.2.1}/pw-id: 7\n"
            "\n"
            "validation points fired: 4\n"
            "  vpn_name_valp at /mpls/l2vpn-config/l2vpn/vpws-group{metro}: warning: this name is hard to read\n"
            "  vpn_overflow_valp at /mpls/l2vpn-config/l2vpn/vpws-group{metro}/vpn{east}: accepted\n"
            "  vpn_peer_valp at /mpls/l2vpn-config/l2vpn/vpws-group{metro}/vpn{east}/neighbor{192.0.2.1}: rejected: "
            "this neighbour is not wanted\n"
            "\n"
            "commit rejected: 3 of 4 points asked, 1 accepted, 1 with a warning, 1 rejected\n" +
                decided_by);
}

TEST_F(CheckCommand, all_goes_on_after_a_rejection) {
  add_neighbour_and_member();
  const Outcome outcome = verdict({"--all"});
  EXPECT_EQ(outcome.status, 1);
  for (const std::string line :
       {"  vlm_memb_valp at /KZ-VLAN-MANAGER-MIB/vlanMgrStaticMemberTable: accepted\n",
        "\ncommit rejected: 4 of 4 points asked, 2 accepted, 1 with a warning, 1 rejected\n"}) {
    EXPECT_NE(outcome.out.find(line), std::string::npos) << outcome.out;
  }
}

TEST_F(CheckCommand, the_trace_is_added_on_demand) {
  folder.configure("", vlan_member("ge-1"));
  EXPECT_EQ(check().out.find("trace"), std::string::npos);
  const std::string text = check({"--trace"}).out;
  EXPECT_NE(text.find("\ntrace: 1\n  answers: first line\n  second line\n\ncommit accepted: "), std::string::npos)
      << text;
}

TEST_F(CheckCommand, derived_changes_are_added_on_demand) {
  folder.configure("", vlan_member("ge-1"));
  const std::string line = "+ /KZ-VLAN-MANAGER-MIB/vlanMgrStaticMemberTable/vlanMgrStaticMemberEntry{1 100 1001}\n";
  EXPECT_EQ(check().out.find(line), std::string::npos);
  EXPECT_NE(check({"--derived"}).out.find(line), std::string::npos);
}

TEST_F(CheckCommand, json_is_alone_on_standard_output_and_the_text_goes_to_standard_error) {
  add_vpn_with_neighbour();
  const Outcome text = verdict();
  const Outcome json = verdict({"--format", "json"});
  EXPECT_EQ(json.status, text.status);
  EXPECT_EQ(json.err, text.out);
  const auto expected = nlohmann::json::parse(R"({
    "summary": {"vpns": {"added": 1, "changed": 0, "removed": 0},
                "attachments": {"added": 0, "changed": 0, "removed": 0},
                "neighbors": {"added": 1, "changed": 0, "removed": 0},
                "members": {"added": 0, "changed": 0, "removed": 0}, "removed": 0},
    "decision": "rejected",
    "total": {"fired": 3, "asked": 3, "accepted": 1, "warnings": 1, "rejected": 1},
    "points": [
      {"name": "vpn_name_valp", "path": "/mpls/l2vpn-config/l2vpn/vpws-group{metro}", "verdict": "warning",
       "message": "this name is hard to read"},
      {"name": "vpn_overflow_valp", "path": "/mpls/l2vpn-config/l2vpn/vpws-group{metro}/vpn{west}",
       "verdict": "accepted"},
      {"name": "vpn_peer_valp", "path": "/mpls/l2vpn-config/l2vpn/vpws-group{metro}/vpn{west}/neighbor{192.0.2.1}",
       "verdict": "rejected", "message": "this neighbour is not wanted"}
    ],
    "changes": [
      {"change": "added", "path": "/mpls/l2vpn-config/l2vpn/vpws-group{metro}/vpn{west}", "derived": false},
      {"change": "added", "path": "/mpls/l2vpn-config/l2vpn/vpws-group{metro}/vpn{west}/neighbor{192.0.2.1}",
       "derived": false},
      {"change": "added", "path": "/mpls/l2vpn-config/l2vpn/vpws-group{metro}/vpn{west}/neighbor{192.0.2.1}/pw-id",
       "derived": false, "new": "7"}
    ],
    "findings": [
      {"severity": "rejection", "from-device": true, "point": "vpn_peer_valp",
       "path": "/mpls/l2vpn-config/l2vpn/vpws-group{metro}/vpn{west}/neighbor{192.0.2.1}",
       "message": "this neighbour is not wanted", "place": {"file": "CANDIDATE", "line": 1},
       "parties": [], "triggers": [], "conflicts": [], "preexisting": false, "minimal": false, "enough": 0,
       "advice": {"alternatives": [], "enough": 0, "choices": [], "minimal": false, "all-alternatives": true},
       "repairs": []},
      {"severity": "warning", "from-device": true, "point": "vpn_name_valp",
       "path": "/mpls/l2vpn-config/l2vpn/vpws-group{metro}",
       "message": "this name is hard to read", "place": {"file": "CANDIDATE", "line": 1},
       "parties": [], "triggers": [], "conflicts": [], "preexisting": false, "minimal": false, "enough": 0,
       "advice": {"alternatives": [], "enough": 0, "choices": [], "minimal": false, "all-alternatives": true},
       "repairs": []}
    ],
    "advice": {"alternatives": [], "enough": 0, "choices": [], "minimal": false, "all-alternatives": true},
    "search": {"all-faults": false, "calls": 0, "budget": {"calls": 0, "seconds": 60.0}, "complete": false,
               "ended-by": "calls", "all-repairs": false, "unproven-rules": []},
    "unused-suppressions": []})");
  auto document = nlohmann::json::parse(verdict_in(json.out));
  EXPECT_EQ(document["library"]["file"], answering_plugin_file());
  EXPECT_EQ(document["inputs"]["candidate"], folder.file("candidate.json"));
  for (auto &finding : document["findings"]) {
    EXPECT_EQ(finding["place"]["file"], folder.file("candidate.json"));
    finding["place"]["file"] = "CANDIDATE";
  }
  document.erase("library");
  document.erase("inputs");
  EXPECT_EQ(document, expected) << document.dump(2);
}

TEST_F(CheckCommand, every_kind_of_json_document_fits_its_schema) {
  int number = 0;
  const auto keep = [&](const std::vector<std::string> &options) {
    std::vector<std::string> all{"--format", "json"};
    all.insert(all.end(), options.begin(), options.end());
    folder.write("document-" + std::to_string(++number), check(all).out);
  };
  keep({});
  add_vpn();
  keep({"--fail-on-warn"});
  add_vpn_with_neighbour();
  keep({"--derived"});
  add_neighbour_and_member();
  keep({"--all", "--trace"});
  const ProcessResult result =
      run_reader("fits_schema.py", SOURCE_DIR "/docs/verdict.schema.json " + folder.path() + "/document-*");
  EXPECT_EQ(result.output, "4 documents fit\n");
  EXPECT_EQ(result.status, 0);
}

TEST_F(CheckCommand, a_wrong_configuration_is_an_input_error_with_file_and_line) {
  folder.write("candidate.json", "{\n  \"mpls:mpls\": {\"no-such-thing\": 1}\n}");
  for (const std::string format : {"text", "json"}) {
    const Outcome outcome = check({"--format", format});
    EXPECT_EQ(outcome.status, 65);
    EXPECT_EQ(outcome.out.empty(), format == "text") << outcome.out;
    EXPECT_EQ(outcome.err.find("vpnval: " + folder.file("candidate.json") + ":2: "), 0u) << outcome.err;
    EXPECT_EQ(outcome.err.find('\n'), outcome.err.size() - 1) << outcome.err;
  }
}

TEST_F(CheckCommand, a_wrong_profile_is_an_input_error) {
  folder.write("element.json", "{}");
  const Outcome outcome = check();
  EXPECT_EQ(outcome.status, 65);
  EXPECT_EQ(outcome.err.find("vpnval: " + folder.file("element.json")), 0u) << outcome.err;
}

TEST_F(CheckCommand, a_library_that_cannot_be_loaded_ends_with_status_69) {
  const Outcome outcome = check({"--plugin", folder.file("element.json")});
  EXPECT_EQ(outcome.status, 69);
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.err.find("vpnval: " + folder.file("element.json")), 0u) << outcome.err;
}

TEST_F(CheckCommand, an_answer_that_the_contract_does_not_have_ends_with_status_70) {
  folder.configure(vpws_group(vpn("east")), vpws_group(vpn("east", R"(, "access-interface": [{"name": "ge-1"}])")));
  const Outcome outcome = check();
  EXPECT_EQ(outcome.status, 70);
  EXPECT_EQ(outcome.err.find("vpnval: "), 0u) << outcome.err;
  EXPECT_NE(outcome.err.find("vpn_sp_valp"), std::string::npos) << outcome.err;
}

}  // namespace
