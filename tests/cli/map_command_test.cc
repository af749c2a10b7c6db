#include "cli/commands/map_command.h"

#include <gtest/gtest.h>

#include "source_dir.h"
#include "tests/cli/commit_folder.h"
#include "tests/support/build_under_test.h"
#include "tests/support/file_content.h"
#include "tests/support/process.h"

namespace {

const std::string rejected = SOURCE_DIR "/examples/access-two-vpns-one-vlan";
const std::string accepted = SOURCE_DIR "/examples/access-two-vpns-two-vlans";
const std::string message =
    "vpls-group campus vpn data and vpws-group branches vpn south must not be configured with the same dot1q on "
    "interface gigabit-ethernet-1/1/1";

class MapCommand : public testing::Test {
 protected:
  Outcome map(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), "map");
    return run_with_library(arguments);
  }

  CommitFolder folder;
  std::string svg = folder.file("map.svg");
  std::string html = folder.file("map.html");
};

TEST_F(MapCommand, draws_a_rejected_commit_and_ends_with_0) {
  const Outcome outcome = map({rejected, "-o", svg});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(outcome.out, svg +
                             ": 4 ports, 2 claims: 1 added, 0 changed, 0 removed. "
                             "The commit is rejected: 1 rejection, 0 warnings.\n");
  EXPECT_NE(content_of(svg).find("<title>gigabit-ethernet-1/1/1: 2 claims; rejection 1: " + message + "; free VLANs: "),
            std::string::npos);
}

TEST_F(MapCommand, the_files_ending_tells_the_format) {
  EXPECT_EQ(map({accepted, "--output", html}).out,
            html + ": 4 ports, 2 claims: 1 added, 0 changed, 0 removed. The commit is accepted.\n");
  EXPECT_TRUE(content_of(html).starts_with("<!DOCTYPE html>\n"));
  map({accepted, "--output", svg});
  EXPECT_TRUE(content_of(svg).starts_with("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<svg "));
  for (const std::string wrong : {"map.png", "map", "map.svg.gz", "svg", ".svg"}) {
    const Outcome outcome = map({accepted, "-o", wrong});
    EXPECT_EQ(outcome.status, 64);
    EXPECT_EQ(outcome.err, "vpnval: -o: \"" + wrong + "\" is no picture; expected a file that ends in .svg or .html\n");
  }
}

TEST_F(MapCommand, names_that_could_not_be_read_are_told_and_stand_in_the_picture) {
  const std::string notice = "3 questions of the library could not be read because of the name `a b`: rules ";
  for (const std::string &file : {svg, html}) {
    const Outcome outcome = map({SOURCE_DIR "/examples/blank-in-name-hides-static-member", "-o", file});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_NE(outcome.out.find("The commit is accepted.\n" + notice), std::string::npos) << outcome.out;
    EXPECT_NE(content_of(file).find(">" + notice), std::string::npos) << file;
  }
}

TEST_F(MapCommand, takes_three_files_as_check_does) {
  const Outcome outcome = map({"--element", rejected + "/element.json", "--running", rejected + "/running.xml",
                               "--candidate", rejected + "/candidate.xml", "-o", svg});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_NE(content_of(svg).find("<title id=\"map-title\">VLANs by port: " + rejected + "/candidate.xml</title>"),
            std::string::npos);
}

TEST_F(MapCommand, a_budget_bounds_the_search_and_the_picture_says_so) {
  const Outcome outcome = map({rejected, "-o", html, "--budget", "0"});
  EXPECT_EQ(outcome.out, html +
                             ": 4 ports, 2 claims: 1 added, 0 changed, 0 removed. The commit is rejected: "
                             "1 rejection, 0 warnings; the search was ended before all was found.\n");
  EXPECT_NE(content_of(html).find("<p class=\"message\">" + message +
                                  "</p>\n<p class=\"when\">The element says it on "
                                  "this commit. Its claims were not looked for.</p>\n"),
            std::string::npos);
}

TEST_F(MapCommand, what_cannot_be_drawn_leaves_what_stood_there) {
  folder.write("map.svg", "old");
  folder.write("candidate.json", "{");
  EXPECT_EQ(map({folder.path(), "-o", svg}).status, 65);
  EXPECT_EQ(map({accepted, "--plugin", "/no/such.so", "-o", svg}).status, 69);
  EXPECT_EQ(map({"-o", svg}).status, 64);
  EXPECT_EQ(content_of(svg), "old");
}

TEST_F(MapCommand, a_place_that_cannot_be_written_is_told_before_all_else) {
  const std::string file = folder.file("no/map.svg");
  folder.write("candidate.json", "{");
  const Outcome outcome = map({folder.path(), "-o", file});
  EXPECT_EQ(outcome.status, 73);
  EXPECT_EQ(outcome.err, "vpnval: " + file + ": cannot be written: No such file or directory\n");
}

TEST_F(MapCommand, the_picture_in_the_docs_is_what_it_draws) {
  const std::string drawn = svg;
  const ProcessResult result = run_process("cd " SOURCE_DIR " && " + vpnval_file() + " map docs/map-example --plugin " +
                                           plugin_file() + " -o " + drawn);
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(content_of(drawn), content_of(SOURCE_DIR "/docs/map-example/map.svg"));
}

}  // namespace
