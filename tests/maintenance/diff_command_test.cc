// vpnval diff as a user runs it. What it finds in seeded changes of the library is tools/run_mutants' to show.

#include <gtest/gtest.h>
#include <stdlib.h>

#include "source_dir.h"
#include "tests/support/build_under_test.h"
#include "tests/support/file_content.h"
#include "tests/support/process.h"

namespace {

namespace fs = std::filesystem;

const std::string examples = SOURCE_DIR "/examples";

/// A few of them, for each changed answer is shrunk.
const std::string some = examples + "/vpn-count-above-limit " + examples + "/pw-ids-swapped " + examples +
                         "/vpws-service-port-without-number " + examples + "/vpls-service-port-without-tls";

class Diff : public testing::Test {
 protected:
  Diff() {
    std::string name = (fs::temp_directory_path() / "vpnval-diff-XXXXXX").string();
    folder_ = mkdtemp(name.data());
  }
  ~Diff() override { fs::remove_all(folder_); }

  std::string file(const std::string &name) const { return folder_ + "/" + name; }

  void write(const std::string &name, const std::string &text) const { std::ofstream(file(name)) << text; }

  static ProcessResult diff(const std::string &library, const std::string &arguments) {
    return run_process(vpnval_file() + " diff --plugin " + plugin_file() + " --plugin " + library + " " + arguments +
                       " 2>&1");
  }

 private:
  std::string folder_;
};

bool holds(const std::string &text, const std::string &part) { return text.find(part) != std::string::npos; }

TEST_F(Diff, of_one_library_is_nothing_and_tells_what_the_corpus_reaches) {
  const ProcessResult result =
      diff(plugin_file(), examples + " --random " + (is_sanitized() ? "20" : "300") + " --trace --calls --jobs 3");
  EXPECT_EQ(result.status, 0) << result.output;
  EXPECT_TRUE(
      holds(result.output, " verdicts changed; rules: none; OLD against OLD: 0\nOLD " + plugin_file() + ", build id"))
      << result.output;
  EXPECT_TRUE(holds(result.output, "\n  drawn by no commit: interface-information\n")) << result.output;
}

// Another library, which accepts most, warns of names, breaks the contract at one point and aborts at another.
TEST_F(Diff, groups_changes_by_rule_and_direction_with_a_shrunk_example) {
  const ProcessResult result = diff(answering_plugin_file(), some + " --examples " + file("found"));
  EXPECT_EQ(result.status, 1);
  for (const char *part : {"\npw-id-moved rejected->rejected:unknown: 1 commit\n  ",
                           "library answered->died: ", "library answered->broke-contract: ", "  NEW died of SIGABRT\n",
                           "  NEW vpn_sp_valp: answered 7; 0, -1 or -3 was expected\n",
                           "\n  OLD vpn_overflow_valp at /mpls/l2vpn-config/l2vpn/"}) {
    EXPECT_TRUE(holds(result.output, part)) << part << "\n" << result.output;
  }
  EXPECT_EQ(run_process(vpnval_file() + " check --budget 0 " + file("found") + "/1-pw-id-moved >/dev/null 2>&1").status,
            1);
}

TEST_F(Diff, accepted_changes_alone_have_a_status_of_their_own_and_unused_lines_are_told) {
  write("all", "* * # it is another library\nvpn-limit text # gone\n");
  const std::string corpus = examples + "/vpn-count-above-limit --accept " + file("all");
  const ProcessResult result = diff(answering_plugin_file(), corpus);
  EXPECT_EQ(result.status, 2) << result.output;
  EXPECT_TRUE(holds(result.output, ", accepted: it is another library\n")) << result.output;
  EXPECT_TRUE(holds(result.output, "accepted change that did not show: " + file("all") + ":2: vpn-limit text\n"))
      << result.output;
  EXPECT_TRUE(holds(diff(answering_plugin_file(), corpus + " --format junit").output,
                    "<skipped message=\"1 commit: it is another library\"/>"));
}

TEST_F(Diff, a_library_that_contradicts_itself_voids_the_comparison) {
  const ProcessResult result = run_process(vpnval_file() + " diff --plugin " + unsteady_plugin_file() + " --plugin " +
                                           plugin_file() + " " + examples + "/vpn-count-above-limit 2>&1");
  EXPECT_EQ(result.status, 70);
  EXPECT_TRUE(holds(result.output, "OLD against OLD: 1, so the comparison is void: OLD gives two answers to "))
      << result.output;
}

TEST_F(Diff, documents_are_well_formed) {
  ASSERT_EQ(diff(answering_plugin_file(), some + " --random 3 --format json -o " + file("diff.json")).status, 1);
  const ProcessResult fits =
      run_process("/usr/bin/python3 " SOURCE_DIR "/tests/cli/fits_schema.py " SOURCE_DIR "/docs/diff.schema.json " +
                  file("diff.json") + " 2>&1");
  EXPECT_EQ(fits.status, 0) << fits.output;
  ASSERT_EQ(diff(answering_plugin_file(), some + " --format junit -o " + file("diff.xml")).status, 1);
  const ProcessResult parsed = run_process(
      "/usr/bin/python3 -c \"import sys, xml.etree.ElementTree as t; r = t.parse(sys.argv[1]).getroot(); "
      "print(int(r.get('failures')) == len(list(r.iter('failure'))) > 2)\" " +
      file("diff.xml"));
  EXPECT_EQ(parsed.output, "True\n");
  const std::string markdown = diff(answering_plugin_file(), some + " --format markdown").output;
  EXPECT_TRUE(holds(markdown, "\n| OLD | NEW |\n|---|---|\n| ")) << markdown;
}

TEST_F(Diff, takes_two_libraries) {
  for (const auto &[given, times] :
       std::map<std::string, std::string>{{"", "once"}, {" --plugin y --plugin z", "3 times"}}) {
    const ProcessResult result = run_process(vpnval_file() + " diff --plugin x" + given + " " + examples + " 2>&1");
    EXPECT_EQ(result.status, 64);
    EXPECT_TRUE(holds(result.output, "--plugin is given " + times +
                                         "; expected two libraries to compare, --plugin OLD --plugin NEW\n"))
        << result.output;
  }
}

TEST_F(Diff, what_cannot_be_compared_is_an_error) {
  fs::create_directory(file("empty"));
  EXPECT_EQ(diff(plugin_file(), "").status, 64);
  EXPECT_EQ(diff(plugin_file(), file("empty")).status, 65);
  EXPECT_EQ(diff(plugin_file(), file("none")).status, 66);
  EXPECT_EQ(diff(SOURCE_DIR "/README.md", examples).status, 69);
  write("accept", "no reason\n");
  EXPECT_EQ(diff(plugin_file(), examples + " --accept " + file("accept")).status, 65);
}

TEST_F(Diff, a_commit_that_cannot_be_decided_is_told) {
  fs::copy(examples + "/vpn-count-above-limit", file("torn"));
  write("torn/candidate.json", "{");
  const ProcessResult result = diff(plugin_file(), file("torn"));
  EXPECT_EQ(result.status, 65);
  EXPECT_TRUE(holds(result.output, "1 that cannot be decided (" + file("torn") + "/candidate.json:1")) << result.output;
}

}  // namespace
