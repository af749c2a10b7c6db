// Recordings as a corpus of vpnval diff.

#include <gtest/gtest.h>
#include <stdlib.h>

#include "maintenance/recording/encode.h"
#include "tests/maintenance/recording/recorded_run.h"
#include "tests/support/build_under_test.h"
#include "tests/support/process.h"

namespace {

namespace fs = std::filesystem;

TEST(DiffOfRecordings, asks_both_builds_what_was_recorded) {
  std::string name = (fs::temp_directory_path() / "vpnval-recordings-XXXXXX").string();
  const std::string folder = mkdtemp(name.data());
  const element::Schema schema;
  std::string files;
  std::size_t count = 0;
  for (const recording::Recording &recording : recordings_of(schema, "access-two-vpns-one-vlan")) {
    const std::string file = folder + "/" + std::to_string(++count);
    std::ofstream(file, std::ios::binary) << recording::encode(recording);
    files += " " + file;
  }
  const std::string diff = vpnval_file() + " diff --plugin " + hookable_file() + " --plugin " + hookable_file();
  const ProcessResult same = run_process(diff + files);
  EXPECT_EQ(same.status, 0) << same.output;
  EXPECT_EQ(same.output.find("0 of " + std::to_string(count) + " verdicts changed; "), 0U) << same.output;
  EXPECT_NE(same.output.find("\n  access-same-dot1q "), std::string::npos) << same.output;

  // One of them is the rejection: it becomes the smallest commit that draws it.
  const ProcessResult shrunk = run_process(vpnval_file() + " shrink --plugin " + hookable_file() + " " + folder + "/4");
  EXPECT_EQ(shrunk.output.find("rejected [access-same-dot1q] by vpn_access_valp: "), 0U) << shrunk.output;

  std::ofstream(folder + "/torn") << "no recording";
  EXPECT_EQ(run_process(diff + " " + folder + "/torn 2>&1").status, 65);
  fs::remove_all(folder);
}

}  // namespace
