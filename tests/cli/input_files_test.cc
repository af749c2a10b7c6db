#include "cli/input/input_files.h"

#include <gtest/gtest.h>

#include "cli/command_line/errors.h"
#include "element/input/input_error.h"
#include "tests/cli/commit_folder.h"

namespace {

report::InputFiles find_in(const CommitFolder &folder) { return cli::find_input_files({folder.path(), "", "", ""}); }

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
  const report::InputFiles files = cli::find_input_files({folder.path(), folder.file("other.json"), "", ""});
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

TEST(InputFiles, a_file_that_cannot_be_read_ends_with_status_66_and_its_name) {
  for (const std::string name : {"element.json", "running.json", "candidate.json"}) {
    const CommitFolder folder;
    folder.remove(name);
    std::filesystem::create_directory(folder.file(name));
    const Outcome outcome = run_with_answers({"check", folder.path()});
    EXPECT_EQ(outcome.status, 66);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err.find("vpnval: " + folder.file(name) + ": "), 0u) << outcome.err;
  }
}

TEST(InputFiles, a_missing_configuration_is_named_as_xml) {
  const CommitFolder folder;
  folder.remove("candidate.json");
  const Outcome outcome = run_with_answers({"check", folder.path()});
  EXPECT_EQ(outcome.status, 66);
  EXPECT_EQ(outcome.err.find("vpnval: " + folder.file("candidate.xml") + ": "), 0u) << outcome.err;
}

TEST(InputFiles, a_missing_directory_ends_with_status_66) {
  for (const std::string command : {"check", "show"}) {
    const Outcome outcome = run_with_answers({command, "/nowhere/at-all"});
    EXPECT_EQ(outcome.status, 66);
    EXPECT_EQ(outcome.err, "vpnval: /nowhere/at-all: is no directory that can be read\n");
  }
}

}  // namespace
