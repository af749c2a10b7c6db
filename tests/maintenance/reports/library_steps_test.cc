#include "maintenance/cost/library_steps.h"

#include <gtest/gtest.h>

#include <map>
#include <sstream>

#include "element/datastore/transaction.h"
#include "maintenance/cost/child_text.h"
#include "rules/rule.h"
#include "tests/maintenance/reports/example_commits.h"
#include "tests/support/build_under_test.h"

namespace {

/// A line "RULE STEP" for each message of an example: the step that set it.
std::string steps_of_messages(const std::string &example) {
  return cost::text_of_child([&example] {
    const maintenance::Commit commit = example_commit(example);
    host::HostSession session(*commit.profile);
    const host::Plugin plugin(plugin_file());
    cost::LibrarySteps steps(plugin.file());
    std::map<std::uint64_t, std::string> step_of_question;
    session.on_call = [&](host::SeamFunction function) {
      if (function == host::SeamFunction::confd_trans_seterr)
        step_of_question[session.question.number] = steps.current();
    };
    const auto transaction = element::make_transaction(commit.running, commit.candidate, *commit.profile);
    const host::Verdict verdict = host::validate_commit(plugin, session, *transaction, {.all_points = true});
    std::string lines;
    for (std::size_t i = 0; i < verdict.points.size(); ++i) {
      const host::PointVerdict &point = verdict.points[i];
      const rules::Rule *rule = rules::rule_of_message(point.point, point.text);
      if (rule != nullptr) lines += rule->id + " " + step_of_question[i + 1] + "\n";
    }
    return lines;
  });
}

TEST(LibrarySteps, that_set_a_message_are_known_to_work_for_its_rule) {
  std::map<std::string, int> seen;
  for (const std::string &example : example_names()) {
    std::istringstream lines(steps_of_messages(example));
    for (std::string rule, step; lines >> rule >> step;) {
      ++seen[rule];
      const auto rules = cost::rules_of_function(step);
      EXPECT_NE(std::find(rules.begin(), rules.end(), rule), rules.end()) << example << ": " << rule << " in " << step;
    }
  }
  // Of a failure of the platform, which no commit draws, there is no example.
  for (const rules::Rule &rule : rules::all_rules()) EXPECT_EQ(seen[rule.id] == 0, rule.examples.empty()) << rule.id;
}

TEST(LibrarySteps, of_a_library_that_is_not_loaded_cannot_be_told) {
  EXPECT_THROW(cost::LibrarySteps(build_dir() + "/lib/none.so"), std::runtime_error);
}

}  // namespace
