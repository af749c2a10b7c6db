#include "cli/command_line/arguments.h"

#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <map>
#include <set>

#include "cli/command_line/budget.h"
#include "cli/command_line/choice.h"
#include "cli/command_line/errors.h"
#include "cli/command_line/help.h"
#include "cli/command_line/maintenance_commands.h"
#include "cli/command_line/program_options.h"

namespace cli {
namespace {

constexpr std::size_t kMostJobs = 256;

const std::map<std::string, Format> formats{{"text", Format::text},     {"json", Format::json},
                                            {"sarif", Format::sarif},   {"junit", Format::junit},
                                            {"github", Format::github}, {"markdown", Format::markdown}};
const std::map<std::string, TableFormat> table_formats{{"text", TableFormat::text}, {"json", TableFormat::json}};
const std::map<std::string, Colour> colours{
    {"auto", Colour::on_a_terminal}, {"always", Colour::always}, {"never", Colour::never}};

/// "FORMAT=FILE", or a file alone, which may hold an equals sign behind anything but a format.
OutputArgument parse_output(const std::string &text) {
  const std::size_t equals = text.find('=');
  const auto format = formats.find(text.substr(0, equals));
  if (equals == std::string::npos || format == formats.end()) return {std::nullopt, text};
  return {format->second, text.substr(equals + 1)};
}

void add_outputs(CLI::App &command, CheckArguments &check) {
  add_choice(command, "--format", formats, check.format, "Format of the result; text unless it is given");
  command
      .add_option_function<std::vector<std::string>>(
          "-o,--output",
          [&check](const std::vector<std::string> &texts) {
            for (const std::string &text : texts) check.outputs.push_back(parse_output(text));
          },
          "Write the result to FILE instead of standard output; FORMAT=FILE: in this format, too; may be given many "
          "times")
      ->allow_extra_args(false)
      ->type_name("")
      ->option_text("FILE");
  command.add_flag("-q,--quiet", check.quiet, "No text for people; errors that are in no result are told all the same");
}

void add_foreign_options(CLI::App &command, InputArguments &input) {
  command.add_flag("--strict", input.strict, "Refuse nodes of modules that are not the element's");
  command.add_flag("--list-foreign", input.list_foreign, "List the modules whose nodes are passed over");
}

void add_edits(CLI::App &command, InputArguments &input) {
  command
      .add_option(
          "--edit", input.edits,
          "Change of the running configuration in place of the candidate (NETCONF edit-config, YANG patch or JSON merge "
          "patch); several are applied in their order")
      ->allow_extra_args(false)
      ->type_name("FILE");
}

void add_files(CLI::App &command, InputArguments &input) {
  command.add_option("--element", input.element, "Element profile (JSON)")->type_name("FILE");
  command.add_option("--running", input.running, "Configuration in force (XML or JSON)")->type_name("FILE");
  command.add_option("--candidate", input.candidate, "Configuration to commit (XML or JSON)")->type_name("FILE");
  add_edits(command, input);
  add_foreign_options(command, input);
}

void add_budget(CLI::App &command, diagnosis::Budget &budget) {
  command
      .add_option_function<std::string>(
          "--budget", [&budget](const std::string &text) { budget = parse_budget(text); },
          "Bound of the search for what draws a message: calls of the library, seconds or both, as 500, 30s or "
          "500,30s; 20000,60s unless it is given; 0: no search")
      ->type_name("BUDGET");
}

void add_search_options(CLI::App &command, CheckArguments &check) {
  add_budget(command, check.budget);
  command
      .add_option("--suppress", check.suppressions,
                  "File of faults that are known, a line each: RULE PATH [until YYYY-MM-DD] # REASON; all faults are "
                  "looked for then; may be given many times")
      ->allow_extra_args(false)
      ->type_name("FILE");
}

/// What `check` and `audit` have in common.
void add_common_options(CLI::App &command, CheckArguments &check, const std::string &jobs) {
  command.add_option("--plugin", check.plugin, "Validation library to ask")->type_name("FILE");
  command.add_option("--jobs", check.jobs, jobs)->check(CLI::Range(std::size_t{1}, kMostJobs))->type_name("N");
  add_outputs(command, check);
  add_choice(command, "--color", colours, check.colour, "Colour in the text; auto: on a terminal");
  add_search_options(command, check);
}

CLI::App *add_audit(CLI::App &program, CheckArguments &audit) {
  audit.is_audit = true;
  audit.all_points = true;
  audit.all_faults = true;
  CLI::App *command = program.add_subcommand("audit", "Tell which faults are in force in a configuration");
  command
      ->add_option("FILE", audit.directories,
                   "Configuration (XML or JSON); several are audited each by itself and summed up")
      ->required()
      ->type_name("");
  command->add_option("--element", audit.input.element, "Element profile (JSON)")->required()->type_name("FILE");
  add_foreign_options(*command, audit.input);
  add_common_options(*command, audit,
                     "Audit so many files at once; as many as there are processors unless it is given");
  command->add_flag("--fail-on-warn", audit.fail_on_warn, "End with status 2 when there are warnings alone");
  return command;
}

CLI::App *add_check(CLI::App &program, CheckArguments &check) {
  CLI::App *command = program.add_subcommand("check", "Decide a commit as the network element would");
  command
      ->add_option(
          "DIR", check.directories,
          "Folder with element.json, running.xml or .json, and candidate.xml or .json; several are decided each "
          "by itself and summed up")
      ->type_name("");
  add_files(*command, check.input);
  add_common_options(*command, check,
                     "Decide so many commits at once; as many as there are processors unless it is given");
  command->add_flag("--all-faults", check.all_faults, "Look for further faults behind what the device says");
  command->add_flag("--all", check.all_points, "Go on to the other validation points after a rejection");
  command->add_flag("--derived", check.derived, "List the changes of derived nodes, too");
  command->add_flag("--trace", check.trace, "Add what the library wrote to its trace");
  command->add_flag("--fail-on-warn", check.fail_on_warn, "End with status 2 when a commit is accepted with warnings");
  command
      ->add_option("--max-removed", check.max_removed,
                   "End with status 3 when more VPNs, attachments, neighbours and members than this are removed")
      ->type_name("N");
  command->add_flag("--fail-on-no-change", check.fail_on_no_change, "End with status 4 when nothing changes");
  command->add_flag("--rollback", check.rollback, "Decide the way back, too: from the candidate to the running");
  return command;
}

CLI::App *add_show(CLI::App &program, ShowArguments &show) {
  CLI::App *command = program.add_subcommand("show", "Print what a commit's validation would read");
  command->add_option("DIR", show.input.directory, "Folder as for check")->required()->type_name("");
  command->add_option("PATH", show.path, "Print what stands at or below this path; default: all derived trees")
      ->type_name("");
  add_files(*command, show.input);
  command->add_flag("--running-config", show.running, "Print from the running configuration, not the candidate");
  add_choice(*command, "--format", table_formats, show.format, "Format of the result; text unless it is given");
  return command;
}

CLI::App *add_explain(CLI::App &program, ExplainArguments &explain) {
  CLI::App *command = program.add_subcommand("explain", "Tell what provokes a message, why, and what to do");
  command
      ->add_option("RULE", explain.rules,
                   "Ids of rules, the text of a message, a validation point, or words; default: list all rules")
      ->type_name("");
  const auto set_format = [&explain](const std::string &name) {
    explain.format = name == "markdown" ? PageFormat::markdown : PageFormat::text;
  };
  command->add_option_function<std::string>("--format", set_format, "Format of the page; text unless it is given")
      ->check(CLI::IsMember({"text", "markdown"}))
      ->type_name("FORMAT");
  return command;
}

bool is_forwarded(const CLI::Option &option) {
  static const std::set<std::string> own{"DIR", "FILE", "jobs", "format", "color", "output", "plugin", "quiet"};
  return option.count() != 0 && !own.contains(option.get_single_name());
}

/// The options that were given, for the command line of a process that decides one of many commits.
std::vector<std::string> forwarded_options(const CLI::App &command) {
  std::vector<std::string> arguments;
  for (const CLI::Option *option : command.get_options()) {
    if (!is_forwarded(*option)) continue;
    const bool is_flag = option->get_items_expected_max() == 0;
    for (const std::string &value : option->results()) {
      arguments.push_back("--" + option->get_single_name() + (is_flag ? "" : "=" + value));
    }
  }
  return arguments;
}

void complete(CheckArguments &check, const CLI::App &command) {
  check.forwarded_options = forwarded_options(command);
  if (check.jobs != 0 && check.directories.empty()) throw UsageError("--jobs without a folder; expected DIR...");
  const bool is_read_by_others = check.is_audit && check.is_series();
  if (is_read_by_others && std::count(check.directories.begin(), check.directories.end(), "-") != 0) {
    throw UsageError("- beside other files, or with --jobs; expected files, for each is read by a process of its own");
  }
  if (check.directories.size() != 1) return;
  (check.is_audit ? check.input.candidate : check.input.directory) = check.directories.front();
}

CLI::App *add_headroom(CLI::App &program, HeadroomArguments &headroom) {
  CLI::App *command = program.add_subcommand("headroom", "Tell what a commit leaves of every limit, on some elements");
  command->add_option("DIR", headroom.input.directory, "Folder as for check")->type_name("");
  command->add_option("--element", headroom.elements, "Element profile (JSON); may be given many times")
      ->allow_extra_args(false)
      ->type_name("FILE");
  command->add_option("--running", headroom.input.running, "Configuration in force (XML or JSON)")->type_name("FILE");
  command->add_option("--candidate", headroom.input.candidate, "Configuration to commit (XML or JSON)")
      ->type_name("FILE");
  add_edits(*command, headroom.input);
  add_foreign_options(*command, headroom.input);
  command->add_option("--plugin", headroom.plugin, "Validation library to ask")->type_name("FILE");
  add_choice(*command, "--format", table_formats, headroom.format, "Format of the result; text unless it is given");
  return command;
}

CLI::App *add_map(CLI::App &program, MapArguments &map) {
  CLI::App *command = program.add_subcommand("map", "Draw who claims which VLAN on which port");
  command->add_option("DIR", map.input.directory, "Folder as for check")->type_name("");
  add_files(*command, map.input);
  command->add_option("-o,--output", map.output, "The picture, .svg or .html")->required()->option_text("FILE");
  command->add_option("--plugin", map.plugin, "Validation library to ask")->type_name("FILE");
  add_budget(*command, map.budget);
  return command;
}

CLI::App *add_plan(CLI::App &program, PlanArguments &plan) {
  CLI::App *command = program.add_subcommand("plan", "Split a commit whose order alone is wrong into accepted steps");
  command->add_option("DIR", plan.input.directory, "Folder as for check")->type_name("");
  add_files(*command, plan.input);
  command->add_option("-o,--output", plan.output, "Folder for the steps, empty or not there: 1, 2 ... as for check")
      ->required()
      ->option_text("DIR");
  command->add_option("--plugin", plan.plugin, "Validation library to ask")->type_name("FILE");
  add_choice(*command, "--format", table_formats, plan.format, "Format of the result; text unless it is given");
  add_budget(*command, plan.budget);
  return command;
}

const std::map<std::string, element::InputFormat> configuration_formats{{"xml", element::InputFormat::xml},
                                                                        {"json", element::InputFormat::json}};

CLI::App *add_apply(CLI::App &program, ApplyArguments &apply) {
  CLI::App *command = program.add_subcommand("apply", "Write the candidate that an edit makes of the running");
  command->add_option("DIR", apply.input.directory, "Folder with running.xml or .json, and edit.xml or .json")
      ->type_name("");
  command->add_option("--running", apply.input.running, "Configuration in force (XML or JSON)")->type_name("FILE");
  add_edits(*command, apply.input);
  add_foreign_options(*command, apply.input);
  command->add_option("-o,--output", apply.output, "The candidate; standard output unless it is given")
      ->option_text("FILE");
  command
      ->add_option_function<std::string>(
          "--format", [&apply](const std::string &name) { apply.format = configuration_formats.at(name); },
          "Format of the candidate; that of the running configuration unless it is given")
      ->check(CLI::IsMember(configuration_formats))
      ->type_name("NAME");
  return command;
}

}  // namespace

ParsedArguments parse_arguments(const std::vector<std::string> &arguments, const Environment &environment) {
  CLI::App program;
  CheckArguments check;
  CheckArguments audit;
  ShowArguments show;
  ExplainArguments explain;
  HeadroomArguments headroom;
  MapArguments map;
  PlanArguments plan;
  ApplyArguments apply;
  FetchArguments fetch;
  ProfileArguments profile;
  ServeArguments serve;
  const CLI::App *check_command = add_check(program, check);
  const CLI::App *audit_command = add_audit(program, audit);
  const CLI::App *show_command = add_show(program, show);
  const CLI::App *explain_command = add_explain(program, explain);
  const CLI::App *headroom_command = add_headroom(program, headroom);
  const CLI::App *map_command = add_map(program, map);
  const CLI::App *plan_command = add_plan(program, plan);
  const CLI::App *apply_command = add_apply(program, apply);
  add_profile(program, profile);
  const CLI::App *fetch_command = add_fetch(program, fetch);
  add_serve(program, serve);

  for (const MaintenanceCommand &command : maintenance_commands()) {
    program.add_subcommand(std::string(command.name), std::string(command.description));
  }

  const std::vector<std::string> options = without_words(arguments);
  if (!options.empty() && !maintenance_description(options.front()).empty()) return MaintenanceArguments{options};
  if (!parse_program(program, arguments, environment)) return ExitStatus::accepted;
  if (check_command->parsed()) {
    complete(check, *check_command);
    return check;
  }
  if (audit_command->parsed()) {
    complete(audit, *audit_command);
    return audit;
  }
  if (show_command->parsed()) return show;
  if (explain_command->parsed()) return explain;
  if (headroom_command->parsed()) return headroom;
  if (map_command->parsed()) return map;
  if (plan_command->parsed()) return plan;
  if (apply_command->parsed()) return apply;
  if (!profile.files.empty()) return profile;
  if (fetch_command->parsed()) return fetch;
  return serve;
}

}  // namespace cli
