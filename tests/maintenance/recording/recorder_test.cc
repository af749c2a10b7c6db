// The recorder where it cannot record, or not all.

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>

#include <fstream>

#include "bench/asked_point.h"
#include "bench/point_commits.h"
#include "host/run/commit.h"
#include "maintenance/recording/decode.h"
#include "tests/maintenance/recording/recorded_run.h"
#include "tests/support/build_under_test.h"
#include "tests/support/file_content.h"

namespace {

namespace fs = std::filesystem;

const std::string kExample = "access-two-vpns-one-vlan";

const element::Schema &schema() {
  static const element::Schema schema;
  return schema;
}

/// The answers of an example's points by the library in the folder, after `prepare`; how it cannot be loaded otherwise.
std::vector<std::string> answers(
    const RecorderFolder &folder, const std::function<void()> &prepare = [] {}) {
  std::unique_ptr<element::Profile> profile;
  const NamedCommit commit = example(schema(), kExample, profile);
  return told_apart([&]() -> std::vector<std::string> {
    host::HostSession session(*profile);
    try {
      const host::Plugin plugin(folder.library());
      prepare();
      std::vector<std::string> texts;
      const host::Verdict verdict = host::validate_commit(plugin, session, *commit.transaction, {.all_points = true});
      for (const host::PointVerdict &point : verdict.points) texts.push_back(point.point + ": " + point.text);
      return texts;
    } catch (const host::LoadError &error) {
      return {error.what()};
    }
  });
}

const std::vector<std::string> kAnswers{
    "vpn_name_valp: ", "vpn_overflow_valp: ", "vpn_peer_valp: ",
    "vpn_access_valp: vpls-group campus vpn data and vpws-group branches vpn south must not be configured with the "
    "same dot1q on interface gigabit-ethernet-1/1/1",
    "vpn_sp_valp: "};

TEST(Recorder, makes_a_recording_of_each_call) {
  const RecorderFolder folder(hookable_file());
  EXPECT_EQ(answers(folder), kAnswers);
  std::vector<std::string> points;
  for (const fs::path &file : folder.recordings()) {
    const recording::Recording recording = recording::decode(content_of(file));
    points.push_back(recording.header.point + ": " + recording.trailer.message.value_or(""));
  }
  EXPECT_EQ(points, kAnswers);
  EXPECT_EQ(folder.status().rfind("recording ", 0), 0U) << folder.status();
}

TEST(Recorder, records_the_library_that_ships) {
  if (build_type() != "Release") GTEST_SKIP() << "the compiler makes the library's calls otherwise";
  const RecorderFolder folder(plugin_file());
  EXPECT_EQ(answers(folder), kAnswers);
  EXPECT_EQ(folder.recordings().size(), kAnswers.size()) << folder.status();
}

TEST(Recorder, without_a_folder_for_recordings_leaves_the_library_alone) {
  const RecorderFolder folder(hookable_file(), false);
  EXPECT_EQ(answers(folder), kAnswers);
  EXPECT_FALSE(fs::exists(folder.recordings_folder()));
}

TEST(Recorder, uses_a_library_that_cannot_be_hooked_without_recording) {
  const RecorderFolder folder(bound_file());
  EXPECT_EQ(answers(folder), kAnswers);
  EXPECT_EQ(folder.recordings().size(), 0U);
  EXPECT_NE(folder.status().find("is used without recording: the slot of "), std::string::npos) << folder.status();
}

TEST(Recorder, without_a_library_cannot_be_loaded) {
  const RecorderFolder folder("");
  EXPECT_EQ(answers(folder), std::vector{folder.library().string() + ": lib_init answered -1"});
  EXPECT_NE(folder.status().find("libconfig_validate_vpn.real.so"), std::string::npos) << folder.status();
}

TEST(Recorder, decides_where_recordings_cannot_be_written) {
  const RecorderFolder folder(hookable_file());
  EXPECT_EQ(answers(folder, [&] { fs::remove_all(folder.recordings_folder()); }), kAnswers);
  EXPECT_FALSE(fs::exists(folder.recordings_folder()));
}

/// Has writing into files fail after so many bytes, as on a full disk.
void fill_disk_after(rlim_t bytes) {
  ::signal(SIGXFSZ, SIG_IGN);
  const rlimit limit{bytes, bytes};
  ::setrlimit(RLIMIT_FSIZE, &limit);
}

TEST(Recorder, decides_where_the_disk_is_full) {
  const RecorderFolder folder(hookable_file());
  EXPECT_EQ(answers(folder, [] { fill_disk_after(100); }), kAnswers);
  EXPECT_EQ(folder.recordings().size(), 0U);
  for (const auto &entry : fs::directory_iterator(folder.recordings_folder())) {
    EXPECT_EQ(entry.path().filename(), "status");
  }
}

// More calls than any element's card lets a commit make.
TEST(Recorder, decides_where_the_recording_would_be_too_large) {
  if (is_sanitized()) GTEST_SKIP() << "a sanitizer makes a minute of it";
  const RecorderFolder folder(hookable_file());
  EXPECT_EQ(told_apart([&]() -> std::vector<std::string> {
              constexpr std::size_t kAttachments = 30'000;
              const auto kind = bench::PointCommitKind::access_many_ports;
              const bench::PointCommit commit = bench::make_point_commit(schema(), kind, kAttachments);
              host::HostSession session(commit.profile);
              const host::Plugin plugin(folder.library());
              bench::AskedPoint(commit, plugin, session).validate();
              return {"accepted"};
            }),
            std::vector<std::string>{"accepted"});
  EXPECT_EQ(folder.recordings().size(), 0U);
  EXPECT_NE(folder.status().find("it is larger than 8 MiB"), std::string::npos) << folder.status();
}

void write_recording(const RecorderFolder &folder, const std::string &name, std::uintmax_t size) {
  std::ofstream(folder.recordings_folder() / name).put('x');
  fs::resize_file(folder.recordings_folder() / name, size);
}

TEST(Recorder, keeps_so_many_recordings_and_those_of_accepted_commits_the_shortest) {
  const RecorderFolder folder(hookable_file());
  for (int i = 100; i < 300; ++i) {
    const std::string verdict = i < 150 ? "rejected" : "accepted";
    write_recording(folder, "0000000" + std::to_string(i) + "-1-vpn_peer_valp-" + verdict + ".vpnrec", 1);
  }
  EXPECT_EQ(answers(folder), kAnswers);
  const std::vector<fs::path> kept = folder.recordings();
  ASSERT_EQ(kept.size(), 200U);
  EXPECT_EQ(kept[0].filename(), "0000000100-1-vpn_peer_valp-rejected.vpnrec");
  EXPECT_EQ(kept[49].filename(), "0000000149-1-vpn_peer_valp-rejected.vpnrec");
  EXPECT_EQ(kept[50].filename(), "0000000155-1-vpn_peer_valp-accepted.vpnrec");
  EXPECT_EQ(kept[199].filename().string().rfind("0000000304-", 0), 0U) << kept[199];
}

TEST(Recorder, keeps_so_many_bytes) {
  const RecorderFolder folder(hookable_file());
  constexpr std::uintmax_t kThird = 22 * 1024 * 1024;
  for (const char *name : {"0000000001-1-a-rejected.vpnrec", "0000000002-1-a-warned.vpnrec"}) {
    write_recording(folder, name, kThird);
  }
  write_recording(folder, "0000000003-1-a-rejected.vpnrec", kThird);
  EXPECT_EQ(answers(folder), kAnswers);
  const std::vector<fs::path> kept = folder.recordings();
  ASSERT_EQ(kept.size(), 2 + kAnswers.size());
  EXPECT_EQ(kept[0].filename(), "0000000002-1-a-warned.vpnrec");
}

}  // namespace
