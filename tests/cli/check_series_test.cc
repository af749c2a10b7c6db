#include "cli/commands/check_series.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <memory>
#include <nlohmann/json.hpp>

#include "report/json/series_json.h"
#include "source_dir.h"
#include "tests/cli/commit_folder.h"
#include "tests/support/build_under_test.h"
#include "tests/support/process.h"

namespace {

const std::string neighbour = R"(, "neighbor": [{"address": "192.0.2.1", "pw-id": 7}])";
const std::string access = R"(, "access-interface": [{"name": "ge-1"}])";

const std::string stop_text = "stopped by signal SIGABRT: answers.cc:1: validate: Assertion `data model' failed.";

/// Folders of commits with the answers of the test's library.
class CheckSeries : public testing::Test {
 protected:
  /// Nothing changes: accepted.
  std::string unchanged() { return add("", ""); }

  /// A VPN is added, of whose name the library warns.
  std::string warned() { return add(vpws_group(vpn("east")), vpws_group(vpn("east") + "," + vpn("west"))); }

  /// A neighbour is added, which the library rejects.
  std::string rejected() { return add(vpws_group(vpn("east")), vpws_group(vpn("east", neighbour))); }

  /// The library answers against its contract: an error.
  std::string wrongly_answered() { return add(vpws_group(vpn("east")), vpws_group(vpn("east", access))); }

  /// The library stops its process.
  std::string stopped() {
    return add("", R"("mpls:mpls": {"l2-vpn:l2vpn-config": {"l2vpn": {"mpls-l2vpn-vpls:vpls-group": [
      {"name": "campus", "vpn": [{"name": "voice", "bridge-domain": {"access-interface": [{"name": "ge-1"}]}}]}]}}})");
  }

  /// A candidate that is no configuration.
  std::string unusable() { return add("", "\"base:no-such-node\": 1"); }

  std::string missing() { return unchanged() + "/no-such-folder"; }

  std::string add(const std::string &running, const std::string &candidate) {
    folders_.push_back(std::make_unique<CommitFolder>());
    folders_.back()->configure(running, candidate);
    return folders_.back()->path();
  }

  std::vector<std::string> one_of_each() {
    return {rejected(), unchanged(), stopped(), warned(), missing(), unusable(), unchanged()};
  }

 private:
  std::vector<std::unique_ptr<CommitFolder>> folders_;
};

/// Runs the command in this process; it starts the real program for each commit.
Outcome check_series(const std::vector<std::string> &directories, const std::vector<std::string> &options = {}) {
  std::vector<std::string> arguments{"check"};
  arguments.insert(arguments.end(), options.begin(), options.end());
  arguments.insert(arguments.end(), directories.begin(), directories.end());
  std::ostringstream out;
  std::ostringstream err;
  const cli::ExitStatus status =
      cli::run(arguments, still_environment(out, err, vpnval_file(), answering_plugin_file()));
  return {static_cast<int>(status), out.str(), err.str()};
}

TEST_F(CheckSeries, every_commit_has_its_line_its_findings_and_its_place_in_the_sum) {
  const std::vector<std::string> names = one_of_each();
  const Outcome outcome = check_series(names, {"--budget=0"});
  EXPECT_EQ(outcome.out, names[0] +
                             ": rejected\n"
                             "1. rejected: this neighbour is not wanted\n"
                             "   at /mpls/l2vpn-config/l2vpn/vpws-group{metro}/vpn{east}/neighbor{192.0.2.1} (" +
                             names[0] + "/candidate.json:1)\n" +
                             "2. warning: this name is hard to read\n"
                             "   at /mpls/l2vpn-config/l2vpn/vpws-group{metro} (" +
                             names[0] + "/candidate.json:1)\n\n" +  //
                             names[1] + ": accepted\n" +            //
                             names[2] + ": not decided: " + stop_text + "\n" + names[3] +
                             ": accepted with warnings\n"
                             "1. warning: this name is hard to read\n"
                             "   at /mpls/l2vpn-config/l2vpn/vpws-group{metro} (" +
                             names[3] + "/candidate.json:1)\n\n" + names[4] + ": not decided: " + names[4] +
                             ": is no directory that can be read\n" + names[5] + ": not decided: " + names[5] +
                             "/candidate.json:1: \"no-such-node\" of module base is not in the data model here; "
                             "expected one of base:config, mpls:mpls\n" +
                             names[6] +
                             ": accepted\n"
                             "\n"
                             "commits: 7\n"
                             "       2 accepted\n"
                             "       1 accepted with warnings\n"
                             "       1 rejected\n"
                             "       3 not decided\n"
                             "findings by rule:\n"
                             "       3 without a rule\n");
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(outcome.status, 70);
}

TEST_F(CheckSeries, so_many_at_once_or_one_by_one_is_the_same_in_every_format) {
  const std::vector<std::string> names = one_of_each();
  for (const std::string format : {"text", "json", "sarif", "junit", "github"}) {
    const Outcome one = check_series(names, {"--format", format, "--jobs", "1"});
    const Outcome many = check_series(names, {"--format", format, "--jobs", "7"});
    const Outcome usual = check_series(names, {"--format", format});
    EXPECT_NE(one.out, "") << format;
    EXPECT_EQ(many.out, one.out) << format;
    EXPECT_EQ(usual.out, one.out) << format;
    EXPECT_EQ(many.status, one.status) << format;
  }
}

TEST_F(CheckSeries, ends_with_the_worst_status) {
  const std::vector<std::pair<std::vector<std::string>, int>> rows{
      {{unchanged(), unchanged()}, 0},         {{unchanged(), warned()}, 2},
      {{warned(), rejected(), warned()}, 1},   {{unusable(), rejected()}, 65},
      {{missing(), unusable(), warned()}, 66}, {{wrongly_answered(), missing()}, 70},
      {{stopped(), rejected()}, 70},
  };
  for (const auto &[names, status] : rows) EXPECT_EQ(check_series(names, {"--fail-on-warn"}).status, status);
  EXPECT_EQ(check_series({unchanged(), warned()}).status, 0);
}

TEST_F(CheckSeries, json_holds_every_verdict_and_the_sum) {
  const std::vector<std::string> names{rejected(), missing(), stopped()};
  const Outcome outcome = check_series(names, {"--format=json"});
  const auto document = nlohmann::json::parse(outcome.out);
  EXPECT_EQ(document["schema-version"], report::json_schema_version);
  EXPECT_EQ(document["program"], (nlohmann::json{{"name", "vpnval"}, {"version", VPNVAL_VERSION}}));
  ASSERT_EQ(document["commits"].size(), 3u);
  const auto alone = nlohmann::json::parse(run_with_answers({"check", "--format", "json", names[0]}).out);
  EXPECT_EQ(document["commits"][0], alone["commits"][0]);
  EXPECT_EQ(
      document["commits"][1],
      (nlohmann::json{{"name", names[1]}, {"status", 66}, {"error", names[1] + ": is no directory that can be read"}}));
  EXPECT_EQ(document["commits"][2], (nlohmann::json{{"name", names[2]}, {"status", 70}, {"error", stop_text}}));
  EXPECT_EQ(document["summary"], nlohmann::json::parse(R"({
    "commits": 3, "accepted": 0, "accepted-with-warnings": 0, "rejected": 1, "not-decided": 2,
    "findings": [{"open": 2, "suppressed": 0}], "unused-suppressions": [], "status": 70})"));
}

TEST_F(CheckSeries, for_a_program_the_sum_for_people_goes_to_standard_error) {
  const Outcome outcome = check_series({unchanged(), unchanged()}, {"--format=json"});
  EXPECT_EQ(outcome.err,
            "commits: 2\n"
            "       2 accepted\n"
            "       0 accepted with warnings\n"
            "       0 rejected\n"
            "       0 not decided\n");
}

TEST_F(CheckSeries, json_documents_fit_their_schema) {
  const CommitFolder documents;
  documents.write("document-1", check_series(one_of_each(), {"--format=json"}).out);
  documents.write("document-2", check_series({unchanged()}, {"--format=json", "--jobs=1"}).out);
  const ProcessResult result =
      run_process("/usr/bin/python3 " SOURCE_DIR "/tests/cli/fits_schema.py " SOURCE_DIR "/docs/verdict.schema.json " +
                  documents.path() + "/document-* 2>&1");
  EXPECT_EQ(result.output, "2 documents fit\n");
}

TEST_F(CheckSeries, one_folder_is_decided_as_one_of_many_where_jobs_are_given) {
  const std::string name = unchanged();
  EXPECT_EQ(check_series({name}, {"--jobs=2"}).out.find(name + ": accepted\n\ncommits: 1\n"), 0u);
  EXPECT_EQ(check_series({name}).out.find("summary: nothing to commit\n"), 0u);
}

TEST_F(CheckSeries, options_reach_every_commit) {
  const std::string member =
      add(vpws_group(vpn("east")), vpws_group(vpn("east", neighbour)) + "," + vlan_member("ge-1"));
  const CommitFolder other;
  other.write("a b=c.json", R"({"card": {}, "interfaces": [{"name": "ge-1", "logical-id": 1, "ifindex": 77}]})");
  const Outcome outcome = check_series({member, member}, {"--all", "--element", other.file("a b=c.json"), "--trace",
                                                          "--format=json", "--derived", "--budget=7"});
  const auto document = nlohmann::json::parse(outcome.out);
  ASSERT_EQ(document["commits"].size(), 2u);
  for (const auto &commit : document["commits"]) {
    const auto &verdict = commit["verdict"];
    EXPECT_EQ(verdict["inputs"]["element"], other.file("a b=c.json"));
    EXPECT_EQ(verdict["total"]["asked"], verdict["total"]["fired"]);
    EXPECT_EQ(verdict["trace"].size(), 1u);
    EXPECT_EQ(verdict["search"]["budget"]["calls"], 7);
    const auto &changes = verdict["changes"];
    EXPECT_TRUE(std::any_of(changes.begin(), changes.end(), [](const auto &change) { return change["derived"]; }));
  }
}

TEST_F(CheckSeries, a_folder_may_be_named_as_an_option_is) {
  const std::string name = unchanged();
  const std::filesystem::path here = std::filesystem::current_path();
  std::filesystem::current_path(name);
  std::filesystem::create_directory("--all");
  for (const char *file : {"element.json", "running.json", "candidate.json"}) {
    std::filesystem::copy(file, std::filesystem::path("--all") / file);
  }
  const Outcome outcome = check_series({"--", "--all", "."});
  std::filesystem::current_path(here);
  EXPECT_EQ(outcome.out.find("--all: accepted\n.: accepted\n"), 0u) << outcome.out;
}

TEST_F(CheckSeries, names_cannot_steer_a_terminal) {
  EXPECT_EQ(check_series({"\x1b[31m", "\n"}).out.find("\\x1b[31m: not decided: \\x1b[31m: is no"), 0u);
}

TEST_F(CheckSeries, a_suppression_that_fits_in_one_commit_is_used) {
  const CommitFolder folder;
  folder.write("known", "pw-id-twice /mpls # borne\nvpn-limit /config # borne\n");
  const std::string fits = add("", "");
  const std::vector<std::string> options{"--suppress", folder.file("known")};
  const std::string line = "vpnval: unused suppression: " + folder.file("known") + ":";
  EXPECT_EQ(check_series({fits, unchanged()}, options).err,
            line + "1: pw-id-twice /mpls\n" + line + "2: vpn-limit /config\n");
  EXPECT_EQ(check_series({unchanged(), missing()}, options).err, "");
}

TEST_F(CheckSeries, a_fault_in_what_all_commits_share_is_one_error) {
  const CommitFolder folder;
  folder.write("known", "no such line\n");
  const Outcome outcome = check_series({unchanged(), unchanged()}, {"--suppress", folder.file("known")});
  EXPECT_EQ(outcome.status, 65);
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(std::count(outcome.err.begin(), outcome.err.end(), '\n'), 1) << outcome.err;
}

TEST_F(CheckSeries, jobs_are_a_number_of_processes_for_folders) {
  const std::vector<std::string> rows{"0", "257", "-1", "x", ""};
  for (const std::string &jobs : rows) EXPECT_EQ(check_series({unchanged()}, {"--jobs=" + jobs}).status, 64) << jobs;
  EXPECT_EQ(check_series({}, {"--jobs=2"}).err, "vpnval: --jobs without a folder; expected DIR...\n");
}

TEST_F(CheckSeries, a_result_that_cannot_be_written_ends_it) {
  const ProcessResult result =
      run_process(vpnval_file() + " check " + unchanged() + " " + unchanged() + " 2>&1 >/dev/full");
  EXPECT_EQ(result.status, 73);
  EXPECT_EQ(result.output, "vpnval: standard output cannot be written\n");
}

// The second commit's process waits for the end of its candidate, which this test's shell holds open.
TEST_F(CheckSeries, ends_its_processes_and_keeps_what_it_has_when_it_is_interrupted) {
  const std::string first = unchanged();
  const std::string second = unchanged();
  const ProcessResult result =
      run_process("exec 2>/dev/null; cd " + second + "; rm candidate.json; mkfifo candidate.json\n" + vpnval_file() +
                  " check " + first + " " + second +
                  " >out & exec 3>candidate.json\n"
                  "while [ ! -s out ]; do sleep 0.01; done\n"
                  "kill -TERM $!; wait $!; echo $?; cat out\n"
                  "trap '' PIPE; (echo '{}' >&3) || echo no process reads on");
  EXPECT_EQ(result.output, "143\n" + first + ": accepted\nno process reads on\n");
}

}  // namespace
