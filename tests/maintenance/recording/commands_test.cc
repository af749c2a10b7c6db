// vpnval recording and vpnval replay as a user runs them.

#include <gtest/gtest.h>
#include <stdlib.h>

#include "maintenance/recording/encode.h"
#include "source_dir.h"
#include "tests/maintenance/recording/recorded_run.h"
#include "tests/support/build_under_test.h"
#include "tests/support/file_content.h"
#include "tests/support/process.h"

namespace {

namespace fs = std::filesystem;

/// A rejection's recording in a folder of its own.
class RecordingCommands : public testing::Test {
 protected:
  RecordingCommands() {
    std::string name = (fs::temp_directory_path() / "vpnval-recording-XXXXXX").string();
    folder_ = mkdtemp(name.data());
    static const element::Schema schema;
    static const recording::Recording rejection = recordings_of(schema, "access-two-vpns-one-vlan").at(3);
    write("rejection", rejection);
    recording::Recording cut = rejection;
    cut.calls.resize(4);
    write("cut", cut);
    std::ofstream(file("torn")) << content_of(file("rejection")).substr(0, 100);
  }
  ~RecordingCommands() override { fs::remove_all(folder_); }

  std::string file(const std::string &name) const { return folder_ + "/" + name; }

  void write(const std::string &name, const recording::Recording &recording) const {
    std::ofstream(file(name), std::ios::binary) << recording::encode(recording);
  }

  static ProcessResult vpnval(const std::string &arguments) {
    return run_process(vpnval_file() + " " + arguments + " 2>&1");
  }

  static ProcessResult replay(const std::string &arguments) {
    return vpnval("replay --plugin " + hookable_file() + " " + arguments);
  }

  /// How documents in the folder fit.
  std::string fit(const std::string &schema, const std::string &names) const {
    return run_process("cd " + folder_ +
                       " && /usr/bin/python3 " SOURCE_DIR "/tests/cli/fits_schema.py " SOURCE_DIR "/docs/" + schema +
                       " " + names + " 2>&1")
        .output;
  }

  std::string folder_;
};

TEST_F(RecordingCommands, show_a_recording_as_text) {
  const ProcessResult shown = vpnval("recording " + file("rejection"));
  EXPECT_EQ(shown.status, 0);
  EXPECT_EQ(
      shown.output.find("point     \"vpn_access_valp\"\npath      /mpls/l2vpn-config/l2vpn/vpws-group{\"branches\"}"
                        "/vpn{\"south\"}/access-interface{\"gigabit-ethernet-1/1/1\"}\n"),
      0U)
      << shown.output;
  EXPECT_NE(shown.output.find("\n     5  valid_intfname(\"gigabit-ethernet-1/1/1\") = 1  ["), std::string::npos);
  EXPECT_EQ(vpnval("recording - < " + file("rejection")).output, shown.output);
}

TEST_F(RecordingCommands, write_json_and_read_it_back) {
  EXPECT_EQ(vpnval("recording --format json " + file("rejection") + " -o " + file("json")).status, 0);
  EXPECT_EQ(vpnval("recording --from-json --format recording " + file("json") + " -o " + file("back")).status, 0);
  EXPECT_EQ(content_of(file("back")), content_of(file("rejection")));
  EXPECT_EQ(fit("recording.schema.json", "json"), "1 documents fit\n");
}

TEST_F(RecordingCommands, put_other_names_in_the_place_of_the_operators) {
  EXPECT_EQ(vpnval("recording --anonymise --format recording " + file("rejection") + " -o " + file("sent")).status, 0);
  const ProcessResult replayed = replay(file("sent"));
  EXPECT_EQ(replayed.status, 0) << replayed.output;
  EXPECT_NE(
      replayed.output.find("replayed  rejected: vpls-group baaaaa vpn caaa and vpws-group aaaaaaaa vpn daaaa must "
                           "not be configured with the same dot1q on interface gigabit-ethernet-1/1/1\nthe same\n"),
      std::string::npos)
      << replayed.output;
}

TEST_F(RecordingCommands, refuse_what_is_no_whole_recording) {
  for (const char *command : {"recording ", "replay "}) {
    const ProcessResult torn = vpnval(command + file("torn"));
    EXPECT_EQ(torn.status, 65);
    EXPECT_NE(torn.output.find(file("torn") + ": the recording is torn or damaged"), std::string::npos) << torn.output;
    EXPECT_EQ(vpnval(command + file("missing")).status, 66);
    EXPECT_EQ(vpnval(command + std::string(SOURCE_DIR "/README.md")).status, 65);
  }
  EXPECT_EQ(vpnval("recording --from-json " + file("rejection")).status, 65);
  EXPECT_EQ(vpnval("replay --plugin " SOURCE_DIR "/README.md " + file("rejection")).status, 69);
}

TEST_F(RecordingCommands, tell_of_a_replay_in_their_status_and_as_json) {
  EXPECT_EQ(replay(file("rejection")).status, 0);
  const ProcessResult cut = replay(file("cut"));
  EXPECT_EQ(cut.status, 1);
  EXPECT_NE(cut.output.find("\ndiverged at call 5: asked valid_intfname("), std::string::npos) << cut.output;
  for (const std::string name : {"rejection", "cut"}) {
    std::ofstream(file(name + ".json")) << replay("--format json " + file(name)).output;
  }
  std::ofstream(file("commit.json"))
      << replay("--format json --commit " + file("commit") + " " + file("rejection")).output;
  EXPECT_EQ(fit("replay.schema.json", "rejection.json cut.json commit.json"), "3 documents fit\n");
}

TEST_F(RecordingCommands, make_a_commit_that_draws_the_same_verdict) {
  const ProcessResult made = replay("--commit " + file("commit") + " " + file("rejection"));
  EXPECT_EQ(made.status, 0);
  EXPECT_EQ(made.output.find("written   " + file("commit") + "\nrecorded  rejected: vpls-group campus"), 0U)
      << made.output;
  const ProcessResult checked = vpnval("check --budget 0 " + file("commit"));
  EXPECT_EQ(checked.status, 1);
  EXPECT_NE(checked.output.find("rejected: vpls-group campus vpn data and vpws-group branches vpn south must not be "
                                "configured with the same dot1q"),
            std::string::npos)
      << checked.output;
}

}  // namespace
