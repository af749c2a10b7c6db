// Where the result of check goes, in which formats, and what is told where a commit cannot be decided.

#include "cli/commands/outputs.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <nlohmann/json.hpp>

#include "source_dir.h"
#include "tests/cli/commit_folder.h"
#include "tests/support/build_under_test.h"
#include "tests/support/file_content.h"
#include "tests/support/process.h"

namespace {

using nlohmann::json;

class OutputsOfCheck : public testing::Test {
 protected:
  OutputsOfCheck() {
    folder.configure(vpws_group(vpn("east")),
                     vpws_group(vpn("east", R"(, "neighbor": [{"address": "192.0.2.1", "pw-id": 7}])")));
  }

  Outcome check(std::vector<std::string> options = {}) const {
    options.insert(options.begin(), {"check", folder.path(), "--budget=0"});
    return run_with_answers(options);
  }

  std::string content(const std::string &name) const { return content_of(folder.file(name)); }

  /// A candidate with an error on line 2.
  void spoil() const { folder.write("candidate.json", "{\n\"mpls:mpls\": {\"no-such\": 1}\n}"); }

  const CommitFolder folder;
};

TEST_F(OutputsOfCheck, several_formats_are_written_in_one_run) {
  const Outcome outcome =
      check({"--output", "json=" + folder.file("a"), "-o", "sarif=" + folder.file("b"), "-o",
             "junit=" + folder.file("c"), "-o", "github=" + folder.file("d"), "-o", "text=" + folder.file("e")});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(outcome.out, check().out);
  for (const auto &[file, format] : {std::pair{"a", "json"}, {"b", "sarif"}, {"c", "junit"}, {"d", "github"}}) {
    EXPECT_EQ(content(file), check({"--format", format}).out) << format;
  }
  EXPECT_EQ(content("e"), outcome.out);
}

TEST_F(OutputsOfCheck, a_file_without_a_format_takes_the_place_of_standard_output) {
  const Outcome json_result = check({"--format=json", "--output", folder.file("a=b")});
  EXPECT_EQ(json_result.out, "");
  EXPECT_EQ(json_result.err, check().out);
  EXPECT_EQ(content("a=b"), check({"--format=json"}).out);
  const Outcome text = check({"--output", folder.file("text")});
  EXPECT_EQ(text.out, "");
  EXPECT_EQ(text.err, "");
  EXPECT_EQ(content("text"), check().out);
}

TEST_F(OutputsOfCheck, many_commits_are_written_likewise) {
  const std::string file = folder.file("result");
  const std::string command = vpnval_file() + " check --budget 0 --plugin " + answering_plugin_file() + " " +
                              folder.path() + " " + folder.path() + "/none ";
  const std::string alone = run_process(command + "--format json 2>/dev/null").output;
  const std::string text = run_process(command + " 2>&1").output;
  EXPECT_EQ(run_process(command + "-o json=" + file + " 2>&1").output, text);
  EXPECT_EQ(content("result"), alone);
  EXPECT_EQ(run_process(command + "-q -o text=" + file + " --format json 2>&1").output, alone);
  EXPECT_EQ(content("result"), text);
}

TEST_F(OutputsOfCheck, quiet_leaves_the_results_alone) {
  folder.write("known", "vpn-limit /config # x\n");
  for (const std::string format : {"json", "sarif", "junit", "github"}) {
    const Outcome told = check({"--format", format, "--suppress", folder.file("known")});
    const Outcome quiet = check({"--quiet", "--format", format, "--suppress", folder.file("known")});
    EXPECT_EQ(quiet.out, told.out);
    EXPECT_NE(told.err, "");
    EXPECT_EQ(quiet.err, "") << format;
    EXPECT_EQ(quiet.status, 1);
  }
  const Outcome silent = check({"-q"});
  EXPECT_EQ(silent.out + silent.err, "");
  EXPECT_EQ(silent.status, 1);
  EXPECT_EQ(check({"-q", "-o", folder.file("text")}).out, "");
  EXPECT_EQ(content("text"), check().out);
}

TEST_F(OutputsOfCheck, what_keeps_a_commit_from_being_decided_is_its_result_in_every_format) {
  spoil();
  const std::string file = folder.file("candidate.json");
  const std::string begin = file + ":2: ";
  const Outcome alone = check();
  EXPECT_EQ(alone.out, "");
  EXPECT_EQ(alone.err.find("vpnval: " + begin), 0u);
  const std::string error = alone.err.substr(8, alone.err.size() - 9);
  const auto result = [&](const std::string &format) {
    const Outcome outcome = check({"--format", format});
    EXPECT_EQ(outcome.status, 65) << format;
    EXPECT_EQ(outcome.err, alone.err) << format;
    return outcome.out;
  };
  const json document = json::parse(result("json"));
  EXPECT_EQ(
      document["commits"][0],
      (json{{"name", folder.path()}, {"status", 65}, {"error", error}, {"place", {{"file", file}, {"line", 2}}}}));
  EXPECT_EQ(document["summary"]["not-decided"], 1);
  EXPECT_EQ(document["summary"]["status"], 65);
  const json sarif = json::parse(result("sarif"))["runs"][0]["results"][0];
  EXPECT_EQ(sarif["message"]["text"], error);
  EXPECT_EQ(sarif["locations"][0]["physicalLocation"]["region"]["startLine"], 2);
  EXPECT_NE(result("junit").find("<error message=\"" + begin), std::string::npos);
  EXPECT_EQ(result("github").find("::error file=" + file + ",line=2,title=" + folder.path() + "::" + begin), 0u);
}

TEST_F(OutputsOfCheck, an_error_that_stands_in_no_result_is_told_though_quiet_is_wanted) {
  spoil();
  EXPECT_EQ(check({"-q", "--format=json"}).err, "");
  EXPECT_EQ(check({"-q"}).err.find("vpnval: " + folder.file("candidate.json") + ":2: "), 0u);
  EXPECT_EQ(check({"-q", "-o", "text=" + folder.file("text")}).err, "");
  EXPECT_EQ(content("text").find(folder.path() + ": not decided: " + folder.file("candidate.json") + ":2: "), 0u);
  EXPECT_EQ(check({"-q", "--format=json", "--jobs=0"}).err.find("vpnval: --jobs: "), 0u);
}

TEST_F(OutputsOfCheck, a_fault_of_the_suppressions_is_a_result_too) {
  folder.write("known", "# x\nno such line\n");
  for (std::vector<std::string> options : {std::vector<std::string>{}, {"--jobs", "2"}}) {
    options.insert(options.end(), {"--format", "github", "--suppress", folder.file("known")});
    const Outcome outcome = check(options);
    EXPECT_EQ(outcome.status, 65);
    EXPECT_EQ(outcome.out.find("::error file=" + folder.file("known") + ",line=2,title="), 0u) << outcome.out;
  }
}

TEST_F(OutputsOfCheck, a_library_against_its_contract_is_a_result) {
  folder.configure(vpws_group(vpn("east")), vpws_group(vpn("east", R"(, "access-interface": [{"name": "ge-1"}])")));
  const json document = json::parse(check({"--format=json"}).out);
  EXPECT_EQ(document["commits"][0]["status"], 70);
  EXPECT_FALSE(document["commits"][0].contains("place"));
}

TEST_F(OutputsOfCheck, whatever_cannot_be_written_ends_with_status_73) {
  const std::string program = vpnval_file() + " ";
  const std::string command = program + "check -q --budget 0 --plugin " + answering_plugin_file() + " " + folder.path();
  const auto expect_73 = [](const std::string &shell, const std::string &told) {
    const ProcessResult result = run_process(shell);
    EXPECT_EQ(result.status, 73) << shell;
    EXPECT_EQ(result.output, "vpnval: " + told + "\n") << shell;
  };
  const std::string out = "standard output cannot be written";
  for (const std::string format : {"json", "sarif", "junit", "github"}) {
    expect_73(command + " --format " + format + " 2>&1 >/dev/full", out);
    expect_73(command + " --format " + format + " 2>&1 >&-", out);
    expect_73(command + " -o " + format + "=/dev/full 2>&1", "/dev/full: cannot be written: No space left on device");
  }
  expect_73(command + " -o /no/such/file 2>&1", "/no/such/file: cannot be written: No such file or directory");
  for (const std::string other : {"explain", "--help", "--version", "explain vpn-limit"}) {
    expect_73(program + other + " 2>&1 >/dev/full", out);
  }
  for (const std::string other : {"show", "headroom", "check --jobs 1"}) {
    expect_73(program + other + " " SOURCE_DIR "/examples/access-vlan-is-static-member 2>&1 >/dev/full", out);
  }
}

TEST_F(OutputsOfCheck, a_result_that_cannot_be_written_leaves_no_file) {
  const std::string file = folder.file("a");
  EXPECT_EQ(check({"-o", "json=" + file, "-o", "json=/no/such/file"}).status, 73);
  EXPECT_FALSE(std::filesystem::exists(file));
  for (const auto &entry : std::filesystem::directory_iterator(folder.path())) {
    EXPECT_EQ(entry.path().string().find(".part-"), std::string::npos);
  }
}

TEST_F(OutputsOfCheck, marks_that_turn_text_reach_no_terminal_in_any_format) {
  const std::string turned = "a\u202eb\u2066\u061c";
  folder.configure("", vpws_group(vpn(turned)));
  for (const std::string format : {"text", "json", "sarif", "junit", "github", "markdown"}) {
    const Outcome outcome = check({"--format", format, "--all-faults"});
    for (const std::string mark : {"\u202e", "\u2066", "\u061c"}) {
      EXPECT_EQ((outcome.out + outcome.err).find(mark), std::string::npos) << format;
    }
    EXPECT_EQ(outcome.status, 0) << outcome.err;
  }
  const json document = json::parse(check({"--format=json"}).out);
  EXPECT_EQ(document["commits"][0]["verdict"]["changes"][1]["path"],
            "/mpls/l2vpn-config/l2vpn/vpws-group{metro}/vpn{" + turned + "}");
}

}  // namespace
