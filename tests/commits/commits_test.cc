// Every example and every commit case, run by the real program with the real library.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "source_dir.h"
#include "tests/support/build_under_test.h"
#include "tests/support/process.h"

namespace {

namespace fs = std::filesystem;

std::string content_of(const fs::path &file) {
  std::ifstream stream(file);
  EXPECT_TRUE(stream) << file;
  return {std::istreambuf_iterator<char>(stream), {}};
}

/// Folders of commits, relative to the top of the tree, by name.
std::vector<std::string> commit_folders() {
  std::vector<std::string> folders;
  for (const std::string parent : {"examples", "tests/commits/cases"}) {
    const fs::path directory = fs::path(SOURCE_DIR) / parent;
    if (!fs::exists(directory)) continue;
    for (const auto &entry : fs::directory_iterator(directory)) {
      if (entry.is_directory()) folders.push_back(parent + "/" + entry.path().filename().string());
    }
  }
  std::sort(folders.begin(), folders.end());
  return folders;
}

std::string test_name(const testing::TestParamInfo<std::string> &info) {
  std::string name = info.param;
  std::replace_if(
      name.begin(), name.end(), [](unsigned char c) { return std::isalnum(c) == 0; }, '_');
  return name;
}

class Commit : public testing::TestWithParam<std::string> {};

TEST_P(Commit, ends_as_expected) {
  const ProcessResult transcript =
      run_process(std::string(SOURCE_DIR "/tools/commit_transcript " + vpnval_file() + " ") + GetParam());
  ASSERT_EQ(transcript.status, 0);
  EXPECT_EQ(transcript.output, content_of(fs::path(SOURCE_DIR) / GetParam() / "expected.txt"));
}

TEST_P(Commit, has_a_story_of_one_line) {
  const std::string story = content_of(fs::path(SOURCE_DIR) / GetParam() / "story.txt");
  EXPECT_GT(story.size(), 1u);
  EXPECT_EQ(std::count(story.begin(), story.end(), '\n'), 1);
  EXPECT_TRUE(story.ends_with(".\n"));
}

INSTANTIATE_TEST_SUITE_P(All, Commit, testing::ValuesIn(commit_folders()), test_name);

}  // namespace
