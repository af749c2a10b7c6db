#include "cli/commands/plan_command.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "element/datastore/difference.h"
#include "element/input/configuration.h"
#include "source_dir.h"
#include "tests/cli/commit_folder.h"
#include "tests/support/file_content.h"

namespace {

namespace fs = std::filesystem;

const std::string examples = SOURCE_DIR "/examples/";

/// A VPWS VPN that is attached to no port.
std::string vpn_with_pw_id(int number, int pw_id) {
  return vpn(fmt::format("v{}", number),
             fmt::format(R"(, "neighbor": [{{"address": "192.0.2.1", "pw-id": {}}}])", pw_id));
}

/// So many VPNs, whose pw-ids are passed on in a circle.
std::string circle(int count, int shift) {
  std::string vpns;
  for (int i = 0; i < count; ++i) {
    vpns += (i == 0 ? "" : ", ") + vpn_with_pw_id(i, 100 + (i + shift) % count);
  }
  return vpws_group(vpns);
}

class PlanCommand : public testing::Test {
 protected:
  Outcome plan(const std::string &commit, std::vector<std::string> more = {}) {
    more.insert(more.begin(), {"plan", commit, "-o", steps});
    return run_with_library(more);
  }

  /// The steps are accepted one after the other, and lead from the commit's one configuration to the other.
  void expect_steps(const std::string &commit, std::size_t count, const std::string &ending) {
    fs::path before = commit + "/running" + ending;
    for (std::size_t i = 1; i <= count; ++i) {
      const fs::path step = fs::path(steps) / std::to_string(i);
      expect_same(before, step / ("running" + ending));
      EXPECT_EQ(run_with_library({"check", step.string()}).status, 0);
      EXPECT_EQ(content_of(step / "element.json"), content_of(commit + "/element.json"));
      before = step / ("candidate" + ending);
    }
    expect_same(before, commit + "/candidate" + ending);
    EXPECT_FALSE(fs::exists(fs::path(steps) / std::to_string(count + 1)));
  }

  void expect_same(const fs::path &a, const fs::path &b) {
    const element::Tree first = element::read_configuration(schema, a);
    const element::Tree second = element::read_configuration(schema, b);
    EXPECT_TRUE(element::difference(first, second).children.empty()) << a << " and " << b;
  }

  const element::Schema schema;
  CommitFolder folder;
  std::string steps = folder.file("steps");
};

TEST_F(PlanCommand, a_pw_id_that_moves_is_freed_first) {
  const std::string commit = examples + "pw-id-moved-to-another-vpn";
  const Outcome outcome = plan(commit);
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_EQ(outcome.out,
            "2 steps, each accepted on what the one before leaves\n\n"
            "step 1: " +
                steps +
                "/1\n"
                "changes: 1\n"
                "~ /mpls/l2vpn-config/l2vpn/vpws-group{branches}\n"
                "  - vpn{south}\n\n"
                "step 2: " +
                steps +
                "/2\n"
                "changes: 1\n"
                "~ /mpls/l2vpn-config/l2vpn/vpws-group{branches}\n"
                "  ~ vpn{north}/neighbor{192.0.2.1}/pw-id: 101 -> 102\n\n");
  expect_steps(commit, 2, ".xml");
}

TEST_F(PlanCommand, what_changes_in_place_makes_room_without_being_taken_away) {
  const std::string commit = examples + "pw-id-of-backup-neighbour-moved";
  EXPECT_EQ(plan(commit).out.find("  - "), std::string::npos);
  expect_steps(commit, 2, ".xml");
}

TEST_F(PlanCommand, swapped_pw_ids_are_taken_away_for_a_time) {
  const std::string commit = examples + "pw-ids-swapped";
  EXPECT_EQ(plan(commit).status, 0);
  expect_steps(commit, 2, ".xml");
}

TEST_F(PlanCommand, a_circle_of_many_stays_in_the_format_of_the_candidate) {
  folder.configure(circle(9, 0), circle(9, 1));
  const Outcome outcome = plan(folder.path());
  EXPECT_EQ(outcome.status, 0) << outcome.out;
  expect_steps(folder.path(), 2, ".json");
}

TEST_F(PlanCommand, a_commit_that_is_accepted_is_one_step) {
  const std::string commit = examples + "access-two-vpns-two-vlans";
  EXPECT_TRUE(plan(commit).out.starts_with("1 step: the commit is accepted as it is\n\nstep 1: "));
  expect_steps(commit, 1, ".xml");
}

TEST_F(PlanCommand, a_commit_without_a_change_is_one_step) {
  EXPECT_EQ(plan(folder.path()).status, 0);
  expect_steps(folder.path(), 1, ".json");
}

TEST_F(PlanCommand, a_wrapper_around_nothing_is_an_empty_configuration) {
  folder.remove("running.json");
  folder.write("running.xml", "<config xmlns=\"urn:ietf:params:xml:ns:netconf:base:1.0\"/>");
  const Outcome outcome = plan(folder.path());
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_EQ(run_with_library({"check", steps + "/1"}).status, 0);
}

TEST_F(PlanCommand, a_fault_of_the_candidate_itself_has_no_steps) {
  const Outcome outcome = plan(examples + "access-two-vpns-one-vlan");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.out,
            "no steps found: order is not all that is wrong: the candidate is rejected on an empty element, too: "
            "vpls-group campus vpn data and vpws-group branches vpn south must not be configured with the same dot1q "
            "on interface gigabit-ethernet-1/1/1\n"
            "what is wrong, and what to take back: vpnval check --all-faults\n");
  EXPECT_FALSE(fs::exists(steps));
}

TEST_F(PlanCommand, a_budget_that_is_used_up_is_said) {
  const Outcome outcome = plan(examples + "pw-ids-swapped", {"--budget", "2"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_TRUE(outcome.out.starts_with("no steps found: the budget is used up after 2 calls of the library\n"))
      << outcome.out;
  EXPECT_FALSE(fs::exists(steps));
}

TEST_F(PlanCommand, parts_that_a_small_budget_leaves_unknown_are_not_said_to_be_tried) {
  // The library refuses every neighbour that is new to it, in whatever order.
  folder.configure(circle(9, 0), circle(9, 1));
  const auto plan_for = [this](const std::string &budget) {
    return run_with_answers({"plan", folder.path(), "-o", steps, "--budget", budget}).out;
  };
  EXPECT_TRUE(plan_for("30").starts_with("no steps found: the budget is used up after ")) << plan_for("30");
  EXPECT_TRUE(
      plan_for("20000").starts_with("no steps found: no order of removals, changes and additions is accepted; "
                                    "too many parts are involved"))
      << plan_for("20000");
}

TEST_F(PlanCommand, what_stands_there_is_left_alone) {
  fs::create_directory(steps);
  folder.write("steps/note", "mine");
  for (const std::string &place : {steps, folder.file("element.json")}) {
    const Outcome outcome = run_with_library({"plan", examples + "pw-ids-swapped", "-o", place});
    EXPECT_EQ(outcome.status, 73);
    EXPECT_EQ(outcome.err, "vpnval: " + place + ": something stands there; expected an empty folder or none\n");
  }
  EXPECT_EQ(content_of(steps + "/note"), "mine");
}

TEST_F(PlanCommand, an_empty_folder_is_filled) {
  fs::create_directory(steps);
  EXPECT_EQ(run_with_library({"plan", examples + "pw-ids-swapped", "-o", steps + "/"}).status, 0);
  expect_steps(examples + "pw-ids-swapped", 2, ".xml");
}

TEST_F(PlanCommand, what_cannot_be_planned_leaves_no_trace) {
  folder.write("candidate.json", "{");
  EXPECT_EQ(plan(folder.path()).status, 65);
  EXPECT_EQ(plan(examples + "pw-ids-swapped", {"--plugin", "/no/such.so"}).status, 69);
  EXPECT_EQ(plan(examples + "pw-ids-swapped", {"--element", "/dev/null"}).status, 65);
  std::size_t files = 0;
  for (const auto &entry : fs::directory_iterator(folder.path())) files += entry.exists() ? 1U : 0U;
  EXPECT_EQ(files, 3u);
  const Outcome outcome = run_with_library({"plan", examples + "pw-ids-swapped", "-o", folder.file("no/steps")});
  EXPECT_EQ(outcome.status, 73);
  EXPECT_EQ(outcome.err, "vpnval: " + folder.file("no/steps") + ": cannot be written: No such file or directory\n");
}

}  // namespace
