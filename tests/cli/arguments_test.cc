#include "cli/command_line/arguments.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdint>
#include <limits>
#include <map>
#include <sstream>

#include "cli/command_line/errors.h"
#include "tests/cli/commit_folder.h"

namespace {

using cli::CheckArguments;
using cli::ExplainArguments;
using cli::MapArguments;
using cli::ShowArguments;

cli::ParsedArguments parse(const std::vector<std::string> &arguments) {
  std::ostringstream out;
  std::ostringstream err;
  return cli::parse_arguments(arguments, {out, err, {}, {}});
}

TEST(Arguments, check_takes_a_directory_and_leaves_every_option_off) {
  const auto check = std::get<CheckArguments>(parse({"check", "folder"}));
  EXPECT_EQ(check.input.directory, "folder");
  EXPECT_EQ(check.input.element + check.input.running + check.input.candidate + check.plugin, "");
  EXPECT_EQ(check.format, cli::Format::text);
  EXPECT_FALSE(check.all_points || check.derived || check.trace || check.fail_on_warn || check.all_faults);
  EXPECT_EQ(check.budget.calls, 20000u);
  EXPECT_EQ(check.budget.time, std::chrono::seconds(60));
  EXPECT_TRUE(check.suppressions.empty());
  EXPECT_EQ(check.colour, cli::Colour::on_a_terminal);
}

TEST(Arguments, check_takes_three_files_and_a_library) {
  const auto check = std::get<CheckArguments>(
      parse({"check", "--element", "e", "--running", "r", "--candidate", "c", "--plugin", "p"}));
  EXPECT_EQ(check.input.directory, "");
  EXPECT_EQ(check.input.element, "e");
  EXPECT_EQ(check.input.running, "r");
  EXPECT_EQ(check.input.candidate, "c");
  EXPECT_EQ(check.plugin, "p");
}

TEST(Arguments, each_flag_of_check_sets_its_own_option) {
  EXPECT_TRUE(std::get<CheckArguments>(parse({"check", "d", "--all"})).all_points);
  EXPECT_TRUE(std::get<CheckArguments>(parse({"check", "d", "--derived"})).derived);
  EXPECT_TRUE(std::get<CheckArguments>(parse({"check", "d", "--trace"})).trace);
  EXPECT_TRUE(std::get<CheckArguments>(parse({"check", "d", "--fail-on-warn"})).fail_on_warn);
  EXPECT_TRUE(std::get<CheckArguments>(parse({"check", "d", "--all-faults"})).all_faults);
  EXPECT_EQ(std::get<CheckArguments>(parse({"check", "d", "--suppress", "known.txt"})).suppressions,
            std::vector<std::string>{"known.txt"});
}

TEST(Arguments, formats_and_colours_go_by_name) {
  for (const auto &[name, format] : std::map<std::string, cli::Format>{{"text", cli::Format::text},
                                                                       {"json", cli::Format::json},
                                                                       {"sarif", cli::Format::sarif},
                                                                       {"junit", cli::Format::junit},
                                                                       {"github", cli::Format::github}}) {
    EXPECT_EQ(std::get<CheckArguments>(parse({"check", "d", "--format", name})).format, format) << name;
  }
  for (const auto &[name, colour] : std::map<std::string, cli::Colour>{
           {"auto", cli::Colour::on_a_terminal}, {"always", cli::Colour::always}, {"never", cli::Colour::never}}) {
    EXPECT_EQ(std::get<CheckArguments>(parse({"check", "d", "--color", name})).colour, colour) << name;
  }
}

TEST(Arguments, a_budget_is_calls_seconds_or_both) {
  struct Row {
    std::string text;
    std::uint64_t calls;
    std::chrono::seconds time;
  };
  for (const auto &[text, calls, time] :
       std::vector<Row>{{"500", 500, std::chrono::seconds(60)},
                        {"30s", 20000, std::chrono::seconds(30)},
                        {"500,30s", 500, std::chrono::seconds(30)},
                        {"0", 0, std::chrono::seconds(60)},
                        {"0s", 20000, std::chrono::seconds(0)},
                        {"18446744073709551615,1000000000s", std::numeric_limits<std::uint64_t>::max(),
                         std::chrono::seconds(1000000000)}}) {
    const diagnosis::Budget budget = std::get<CheckArguments>(parse({"check", "d", "--budget", text})).budget;
    EXPECT_EQ(budget.calls, calls) << text;
    EXPECT_EQ(budget.time, time) << text;
  }
}

TEST(Arguments, what_is_no_budget_is_told_with_what_was_expected) {
  for (const std::string text : {"", ",", "s", "-1", "+5", "1.5s", "30 s", "30m", "30s,500", "500,30", "500,", ",30s",
                                 "500,30s,", "1000000001s", "18446744073709551616", "5x"}) {
    const Outcome outcome = run_with_answers({"check", "folder", "--budget=" + text});
    EXPECT_EQ(outcome.status, 64) << text;
    if (text.empty()) continue;
    EXPECT_EQ(outcome.err, "vpnval: --budget: \"" + text +
                               "\" is no budget; expected calls of the library, seconds, or both, as 500, 30s or "
                               "500,30s\n");
  }
}

TEST(Arguments, many_folders_or_a_number_of_jobs_make_a_series) {
  const auto one = std::get<CheckArguments>(parse({"check", "folder"}));
  EXPECT_FALSE(one.is_series());
  EXPECT_EQ(one.input.directory, "folder");

  const auto many = std::get<CheckArguments>(parse({"check", "a", "--all", "b"}));
  EXPECT_TRUE(many.is_series());
  EXPECT_EQ(many.directories, (std::vector<std::string>{"a", "b"}));
  EXPECT_EQ(many.jobs, 0u);

  const auto jobs = std::get<CheckArguments>(parse({"check", "--jobs", "4", "folder"}));
  EXPECT_TRUE(jobs.is_series());
  EXPECT_EQ(jobs.jobs, 4u);
}

TEST(Arguments, what_is_not_the_series_own_is_handed_on) {
  const auto series =
      std::get<CheckArguments>(parse({"check", "a", "b", "--fail-on-warn", "--jobs", "4", "--format", "json", "--color",
                                      "never", "--plugin", "p", "--suppress", "x y", "--budget", "7,3s", "--all"}));
  EXPECT_EQ(series.forwarded_options,
            (std::vector<std::string>{"--budget=7,3s", "--suppress=x y", "--all", "--fail-on-warn"}));
}

TEST(Arguments, show_takes_a_directory_and_a_path) {
  const auto all = std::get<ShowArguments>(parse({"show", "folder"}));
  EXPECT_EQ(all.input.directory, "folder");
  EXPECT_EQ(all.path, "");
  EXPECT_FALSE(all.running);

  const auto some = std::get<ShowArguments>(parse({"show", "folder", "/internal", "--running-config"}));
  EXPECT_EQ(some.path, "/internal");
  EXPECT_TRUE(some.running);
}

TEST(Arguments, explain_takes_a_rule_and_a_format_or_nothing) {
  const auto all = std::get<ExplainArguments>(parse({"explain"}));
  EXPECT_EQ(all.rules, std::vector<std::string>{});
  EXPECT_EQ(all.format, cli::PageFormat::text);

  const auto one = std::get<ExplainArguments>(parse({"explain", "vpn-limit", "--format", "markdown"}));
  EXPECT_EQ(one.rules, std::vector<std::string>{"vpn-limit"});
  EXPECT_EQ(one.format, cli::PageFormat::markdown);
  EXPECT_EQ(std::get<ExplainArguments>(parse({"explain", "--format", "text"})).format, cli::PageFormat::text);
}

TEST(Arguments, map_takes_a_commit_and_a_file) {
  const auto map = std::get<MapArguments>(parse({"map", "folder", "-o", "map.svg"}));
  EXPECT_EQ(map.input.directory, "folder");
  EXPECT_EQ(map.output, "map.svg");
  EXPECT_EQ(map.plugin, "");
  EXPECT_EQ(map.budget.calls, 20000u);
  const auto other = std::get<MapArguments>(
      parse({"map", "--element", "e", "--candidate", "c", "--output", "o", "--plugin", "p", "--budget", "5s"}));
  EXPECT_EQ(other.input.element + other.input.running + other.input.candidate + other.output + other.plugin, "ecop");
  EXPECT_EQ(other.budget.time, std::chrono::seconds(5));
}

TEST(Arguments, plan_takes_a_commit_a_folder_and_a_format) {
  const auto plain = std::get<cli::PlanArguments>(parse({"plan", "folder", "-o", "steps"}));
  EXPECT_EQ(plain.input.directory, "folder");
  EXPECT_EQ(plain.output, "steps");
  EXPECT_EQ(plain.format, cli::TableFormat::text);
  const auto document = std::get<cli::PlanArguments>(parse({"plan", "folder", "-o", "steps", "--format", "json"}));
  EXPECT_EQ(document.format, cli::TableFormat::json);
}

TEST(Arguments, what_cannot_be_carried_out_is_a_usage_error) {
  const std::vector<std::vector<std::string>> wrong{
      {},
      {"chekc", "folder"},
      {"check", "folder", "--frobnicate"},
      {"check", "folder", "--format"},
      {"check", "folder", "--format", "yaml"},
      {"check", "folder", "--format", "1"},
      {"check", "folder", "--color", "blue"},
      {"check", "folder", "--color", "0"},
      {"check", "folder", "--suppress"},
      {"check", "--element"},
      {"show"},
      {"show", "folder", "/internal", "/mpls"},
      {"explain", "vpn-limit", "--format", "json"},
  };
  for (const auto &arguments : wrong) {
    EXPECT_THROW(parse(arguments), cli::UsageError) << testing::PrintToString(arguments);
  }
}

TEST(Arguments, usage_errors_end_the_program_with_one_line_and_status_64) {
  const Outcome outcome = run_with_answers({"check", "folder", "--frobnicate"});
  EXPECT_EQ(outcome.status, 64);
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.err,
            "vpnval: The following argument was not expected: --frobnicate (vpnval --help lists what is expected)\n");
}

TEST(Arguments, files_without_a_directory_must_be_all_three) {
  for (const auto &arguments : std::vector<std::vector<std::string>>{
           {"check"}, {"check", "--element", "e"}, {"check", "--running", "r", "--candidate", "c"}}) {
    const Outcome outcome = run_with_answers(arguments);
    EXPECT_EQ(outcome.status, 64);
    EXPECT_EQ(outcome.err, "vpnval: a directory was expected, or --element, --running and --candidate or --edit\n");
  }
}

TEST(Arguments, help_and_version_are_results) {
  const Outcome version = run_with_answers({"--version"});
  EXPECT_EQ(version.status, 0);
  EXPECT_EQ(version.out, "vpnval " VPNVAL_VERSION "\n");
  EXPECT_EQ(version.err, "");

  const Outcome help = run_with_answers({"--help"});
  EXPECT_EQ(help.status, 0);
  EXPECT_EQ(help.err, "");
  for (const std::string part : {"check", "show", "Exit status:", "  66  a file cannot be read\n"}) {
    EXPECT_NE(help.out.find(part), std::string::npos) << part << " is missing from:\n" << help.out;
  }
  EXPECT_NE(run_with_answers({"check", "--help"}).out.find("--fail-on-warn"), std::string::npos);
}

TEST(Arguments, headroom_takes_many_elements_one_by_one) {
  const auto none = std::get<cli::HeadroomArguments>(parse({"headroom", "folder"}));
  EXPECT_EQ(none.input.directory, "folder");
  EXPECT_TRUE(none.elements.empty());
  EXPECT_EQ(none.format, cli::TableFormat::text);
  const auto two = std::get<cli::HeadroomArguments>(
      parse({"headroom", "--element", "a", "folder", "--element", "b", "--format", "json", "--plugin", "p"}));
  EXPECT_EQ(two.input.directory, "folder");
  EXPECT_EQ(two.elements, (std::vector<std::string>{"a", "b"}));
  EXPECT_EQ(two.format, cli::TableFormat::json);
  EXPECT_EQ(two.plugin, "p");
  EXPECT_THROW(parse({"headroom", "folder", "--format", "sarif"}), cli::UsageError);
}

}  // namespace
