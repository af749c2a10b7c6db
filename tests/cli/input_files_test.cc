#include "cli/input_files.h"

#include <gtest/gtest.h>

#include <functional>

#include "cli/errors.h"
#include "element/input_error.h"
#include "tests/cli/commit_folder.h"

namespace {

cli::InputFiles find_in(const CommitFolder &folder) { return cli::find_input_files({folder.path(), "", "", ""}); }

TEST(InputFiles, a_directory_holds_profile_and_configurations_as_json_or_xml) {
  const CommitFolder folder;
  EXPECT_EQ(find_in(folder).element, folder.file("element.json"));
  EXPECT_EQ(find_in(folder).running, folder.file("running.json"));
  EXPECT_EQ(find_in(folder).candidate, folder.file("candidate.json"));

  folder.remove("running.json");
  folder.write("running.xml", "");
  EXPECT_EQ(find_in(folder).running, folder.file("running.xml"));
  EXPECT_EQ(find_in(folder).candidate, folder.file("candidate.json"));
}

TEST(InputFiles, a_named_file_takes_the_place_of_the_directorys) {
  const CommitFolder folder;
  folder.write("other.json", "{}");
  const cli::InputFiles files = cli::find_input_files({folder.path(), folder.file("other.json"), "", ""});
  EXPECT_EQ(files.element, folder.file("other.json"));
  EXPECT_EQ(files.running, folder.file("running.json"));
}

TEST(InputFiles, one_configuration_in_two_formats_is_refused) {
  const CommitFolder folder;
  folder.write("candidate.xml", "");
  const Outcome outcome = run_with_answers({"check", folder.path()});
  EXPECT_EQ(outcome.status, 65);
  EXPECT_EQ(outcome.err,
            "vpnval: " + folder.path() + ": holds candidate.xml and candidate.json; one of them was expected\n");
}

struct Unreadable {
  std::string file;
  std::string reason;
  std::function<void(const CommitFolder &)> spoil;
};

TEST(InputFiles, a_file_that_cannot_be_read_ends_with_status_66_and_its_name) {
  const std::vector<Unreadable> cases{
      {"element.json", "No such file or directory", [](const CommitFolder &f) { f.remove("element.json"); }},
      {"running.xml", "No such file or directory", [](const CommitFolder &f) { f.remove("running.json"); }},
      {"candidate.json", "is a directory; a file was expected",
       [](const CommitFolder &f) {
         f.remove("candidate.json");
         std::filesystem::create_directory(f.file("candidate.json"));
       }},
  };
  for (const Unreadable &row : cases) {
    const CommitFolder folder;
    row.spoil(folder);
    const Outcome outcome = run_with_answers({"check", folder.path()});
    EXPECT_EQ(outcome.status, 66);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, "vpnval: " + folder.file(row.file) + ": " + row.reason + "\n");
  }
}

TEST(InputFiles, a_missing_directory_ends_with_status_66) {
  const Outcome outcome = run_with_answers({"check", "/nowhere/at-all"});
  EXPECT_EQ(outcome.status, 66);
  EXPECT_EQ(outcome.err, "vpnval: /nowhere/at-all: no such directory\n");
}

}  // namespace
