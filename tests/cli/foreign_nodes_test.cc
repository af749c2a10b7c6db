#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "tests/cli/commit_folder.h"

namespace {

/// A commit with nodes of other modules in its candidate, and in its running configuration if wanted.
class ForeignNodes : public testing::Test {
 protected:
  ForeignNodes() { folder.configure("", "\"x:system\": {\"host\": \"a\"},\n\"y:y\": [1, 2]"); }

  Outcome run(std::vector<std::string> arguments) const {
    arguments.insert(arguments.begin() + 1, folder.path());
    return run_with_answers(arguments);
  }

  const CommitFolder folder;
  const std::string nothing = "summary: nothing to commit\n";
  const std::string line = "passed over: 4 nodes of 2 modules in candidate\n";
  const std::string list = "  " + folder.file("candidate.json") + ":1: 2 nodes of x\n  " +
                           folder.file("candidate.json") + ":2: 2 nodes of y\n";
  const std::string refused = "vpnval: " + folder.file("candidate.json") +
                              ":1: foreign node system of module \"x\"; expected nodes of the element's own modules "
                              "alone\n";
};

TEST_F(ForeignNodes, check_tells_them_before_the_difference) {
  EXPECT_TRUE(run({"check"}).out.starts_with(nothing + line + "changes: 0\n"));
  EXPECT_TRUE(run({"check", "--list-foreign"}).out.starts_with(nothing + line + list + "changes: 0\n"));
  folder.configure("\"x:system\": 1", "");
  EXPECT_TRUE(run({"check"}).out.starts_with(nothing + "passed over: 1 node of 1 module in running\nchanges: 0\n"));
  folder.configure("\"x:system\": 1", "\"x:system\": 2");
  EXPECT_TRUE(run({"check"}).out.starts_with(
      nothing + "passed over: 1 node of 1 module in running, 1 node of 1 module in candidate\n"));
  folder.configure("", "");
  EXPECT_TRUE(run({"check", "--list-foreign"}).out.starts_with(nothing + "changes: 0\n"));
}

TEST_F(ForeignNodes, json_counts_and_lists_them) {
  using nlohmann::json;
  const json counts = {{"running", {{"nodes", 0}, {"modules", 0}}}, {"candidate", {{"nodes", 4}, {"modules", 2}}}};
  EXPECT_EQ(json::parse(verdict_in(run({"check", "--format=json"}).out)).at("passed-over"), counts);
  const std::string file = folder.file("candidate.json");
  const json modules = json::array({{{"module", "x"}, {"nodes", 2}, {"file", file}, {"line", 1}},
                                    {{"module", "y"}, {"nodes", 2}, {"file", file}, {"line", 2}}});
  EXPECT_EQ(json::parse(verdict_in(run({"check", "--format=json", "--list-foreign"}).out))
                .at("passed-over")
                .at("candidate")
                .at("list"),
            modules);
  folder.configure("", "");
  EXPECT_FALSE(json::parse(verdict_in(run({"check", "--format=json"}).out)).contains("passed-over"));
}

TEST_F(ForeignNodes, other_commands_tell_them_on_standard_error) {
  const std::string picture = folder.file("map.svg");
  const std::string steps = folder.file("steps");
  EXPECT_TRUE(run({"show", "--list-foreign"}).err.starts_with(line + list));
  EXPECT_TRUE(run({"map", "-o", picture, "--list-foreign"}).err.starts_with(line + list));
  EXPECT_TRUE(run({"plan", "-o", steps, "--list-foreign"}).err.starts_with(line + list));
  EXPECT_TRUE(run({"headroom", "--list-foreign"}).err.starts_with(line + list));
}

TEST_F(ForeignNodes, strict_commands_refuse_them) {
  for (std::vector<std::string> arguments : {std::vector<std::string>{"check"},
                                             {"show"},
                                             {"map", "-o", folder.file("map.svg")},
                                             {"plan", "-o", folder.file("steps")},
                                             {"headroom"}}) {
    arguments.emplace_back("--strict");
    const Outcome outcome = run(arguments);
    EXPECT_EQ(outcome.status, 65) << arguments.front();
    EXPECT_EQ(outcome.err, refused) << arguments.front();
  }
}

}  // namespace
