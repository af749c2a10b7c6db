// How vpnval hands a command over to vpnval-maintenance.

#include <gtest/gtest.h>
#include <stdlib.h>

#include "cli/command_line/maintenance_commands.h"
#include "source_dir.h"
#include "tests/support/build_under_test.h"
#include "tests/support/file_content.h"
#include "tests/support/process.h"

namespace {

namespace fs = std::filesystem;

/// A folder with a vpnval of its own, and in place of vpnval-maintenance whatever a test puts there.
class MaintenanceProgram : public testing::Test {
 protected:
  MaintenanceProgram() {
    std::string name = (fs::temp_directory_path() / "vpnval-maintenance-XXXXXX").string();
    folder_ = mkdtemp(name.data());
    fs::copy(vpnval_file(), folder_ / "vpnval");
  }
  ~MaintenanceProgram() override { fs::remove_all(folder_); }

  void put_program(const std::string &script) const {
    std::ofstream(folder_ / "vpnval-maintenance") << "#!/bin/sh\n" << script << '\n';
    fs::permissions(folder_ / "vpnval-maintenance", fs::perms::owner_all);
  }

  ProcessResult run(const std::string &arguments) const {
    return run_process(folder_.string() + "/vpnval " + arguments + " 2>&1");
  }

  fs::path folder_;
};

TEST_F(MaintenanceProgram, that_is_missing_is_an_error_that_names_the_file) {
  const ProcessResult result = run("diff");
  EXPECT_EQ(result.status, 66);
  EXPECT_EQ(result.output.find("vpnval: " + folder_.string() + "/vpnval-maintenance: no such file, nor "), 0U)
      << result.output;
}

TEST_F(MaintenanceProgram, that_cannot_be_executed_is_an_error_that_says_why) {
  put_program("exit 0");
  fs::permissions(folder_ / "vpnval-maintenance", fs::perms::owner_read);
  const ProcessResult result = run("diff");
  EXPECT_EQ(result.status, 66);
  EXPECT_NE(result.output.find("/vpnval-maintenance: cannot be executed: "), std::string::npos) << result.output;
}

TEST_F(MaintenanceProgram, takes_every_argument_and_gives_its_status) {
  put_program("printf '<%s>' \"$@\"; exit 7");
  const ProcessResult result = run("diff --plugin 'a b' '' --help");
  EXPECT_EQ(result.output, "<diff><--plugin><a b><><--help>");
  EXPECT_EQ(result.status, 7);
  EXPECT_EQ(run("help shrink").output, "<shrink><--help>");
}

TEST_F(MaintenanceProgram, is_the_process_that_a_signal_ends) {
  put_program("kill -TERM $$");
  EXPECT_EQ(run_process("sh -c '" + (folder_ / "vpnval").string() + " diff; echo $?'").output, "143\n");
}

TEST_F(MaintenanceProgram, is_built_by_run_for_each_of_its_commands) {
  const std::string run = content_of(SOURCE_DIR "/run");
  const std::size_t end = run.find(") target=vpnval_maintenance");
  const std::size_t begin = run.rfind("  ", end) + 2;
  ASSERT_NE(end, std::string::npos);
  const std::string patterns = run.substr(begin, end - begin);
  for (const cli::MaintenanceCommand &command : cli::maintenance_commands()) {
    const std::string name(command.name);
    EXPECT_EQ(run_process("case " + name + " in " + patterns + ") echo built ;; esac").output, "built\n") << name;
  }
}

}  // namespace
