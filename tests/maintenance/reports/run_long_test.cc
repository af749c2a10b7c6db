// tools/run_long, with a program in place of the built ones that does what the test wants.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "source_dir.h"
#include "tests/support/file_content.h"
#include "tests/support/process.h"

namespace {

namespace fs = std::filesystem;

class LongRun : public testing::Test {
 protected:
  LongRun() : folder_(fs::path(testing::TempDir()) / ("long_run." + std::to_string(::getpid()))) {
    fs::create_directories(folder_ / "build/bin");
  }
  ~LongRun() override { fs::remove_all(folder_); }

  /// The program that stands for vpnval.
  void program(const std::string &script) const {
    const fs::path file = folder_ / "build/bin/vpnval";
    std::ofstream(file) << "#!/bin/sh\n" << script << '\n';
    fs::permissions(file, fs::perms::owner_all);
  }

  ProcessResult run(const std::string &options) const {
    return run_process(SOURCE_DIR "/tools/run_long " + (folder_ / "kept").string() + " --rounds 1 --build " +
                       (folder_ / "build").string() + " --fuzz-build /none " + options + " 2>&1");
  }

  fs::path folder_;
};

TEST_F(LongRun, goes_on_with_seeds_that_it_has_not_had) {
  program("echo asked: $*");
  const ProcessResult first = run("--only same-library --seed 7");
  EXPECT_EQ(first.status, 0);
  EXPECT_NE(first.output.find("| 500 | 507 | 1 | "), std::string::npos) << first.output;
  const ProcessResult second = run("--only same-library --seed 7");
  EXPECT_NE(second.output.find(" | 2 | "), std::string::npos) << second.output;
  EXPECT_EQ(second.output.find("| 507 |"), std::string::npos) << second.output;
}

TEST_F(LongRun, keeps_the_output_of_what_failed) {
  program("echo seen by $*; exit 1");
  const ProcessResult result = run("--only same-library --seed 7");
  EXPECT_EQ(result.status, 1);
  EXPECT_NE(result.output.find("| same-library-7.log |"), std::string::npos) << result.output;
  const std::string log = content_of(folder_ / "kept/failures/same-library-7.log");
  EXPECT_NE(log.find("\nseen by diff --plugin "), std::string::npos) << log;
  EXPECT_NE(log.find("--random 500 --seed 7 "), std::string::npos) << log;
}

TEST_F(LongRun, passes_over_what_is_not_built_and_says_so) {
  program("echo 'call p s f 1st accepted'; echo 'rule pw-id-twice draws'; exit 1");
  const ProcessResult result = run("--only coverage,rules");
  EXPECT_EQ(result.status, 0) << "drawn commits need not reach every rule";
  EXPECT_NE(result.output.find("passed over: property_tests is not built"), std::string::npos) << result.output;
  EXPECT_NE(result.output.find("Drawn commits fill 1 of the "), std::string::npos) << result.output;
  EXPECT_NE(result.output.find("- not known before: `call p s f 1st accepted`"), std::string::npos) << result.output;
  EXPECT_EQ(run("--only rules").status, 1) << "nothing was done";
}

}  // namespace
