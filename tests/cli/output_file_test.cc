#include "cli/terminal/output_file.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <set>

#include "cli/command_line/errors.h"
#include "tests/cli/commit_folder.h"
#include "tests/support/file_content.h"

namespace {

namespace fs = std::filesystem;
using cli::OutputFile;

class OutputFileTest : public testing::Test {
 protected:
  OutputFileTest() { fs::create_directory(directory); }

  std::set<std::string> names() const {
    std::set<std::string> found;
    for (const auto &entry : fs::directory_iterator(directory)) found.insert(entry.path().filename().string());
    return found;
  }

  CommitFolder folder;
  std::string directory = folder.file("out");
  std::string file = directory + "/map.svg";
};

TEST_F(OutputFileTest, takes_the_place_of_what_stood_there_when_it_is_whole) {
  folder.write("out/map.svg", "old");
  OutputFile output(file);
  output.write("new ");
  output.write(std::string(100000, 'x'));
  EXPECT_EQ(content_of(file), "old");
  output.publish();
  EXPECT_EQ(content_of(file), "new " + std::string(100000, 'x'));
  EXPECT_EQ(names(), (std::set<std::string>{"map.svg"}));
}

TEST_F(OutputFileTest, goes_without_a_trace_unless_it_is_put_in_place) {
  folder.write("out/map.svg", "old");
  { OutputFile(file).write("new"); }
  EXPECT_EQ(content_of(file), "old");
  EXPECT_EQ(names(), (std::set<std::string>{"map.svg"}));
}

TEST_F(OutputFileTest, can_be_read_as_any_file_that_the_user_writes) {
  folder.write("out/usual", "");
  OutputFile output(file);
  output.publish();
  EXPECT_EQ(fs::status(file).permissions(), fs::status(directory + "/usual").permissions());
}

TEST_F(OutputFileTest, a_place_that_cannot_be_written_is_named) {
  fs::create_directory(file);
  const auto put = [](const std::string &where) {
    try {
      OutputFile(where).publish();
    } catch (const cli::OutputError &error) {
      return std::string(error.what());
    }
    return std::string("written");
  };
  EXPECT_EQ(put(directory + "/no/map.svg"), directory + "/no/map.svg: cannot be written: No such file or directory");
  EXPECT_EQ(put(file), file + ": cannot be written: Is a directory");
  EXPECT_EQ(names(), (std::set<std::string>{"map.svg"}));
}

}  // namespace
