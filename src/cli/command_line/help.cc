#include "cli/command_line/help.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cstddef>

#include "cli/command_line/exit_status.h"

namespace cli {
namespace {

using enum ExitStatus;

/// Any command may fail so.
constexpr std::array kCommon{usage, internal, out_of_memory, unwritable_output};

struct CommandHelp {
  std::string_view command;
  std::vector<ExitStatus> statuses;  ///< beside the common ones
  std::string_view example;
  std::vector<ExitStatusMeaning> own_meanings{};  ///< of statuses that mean something else here
};

const std::vector<CommandHelp> &command_helps() {
  static const std::vector<CommandHelp> helps{
      {"check",
       {accepted, rejected, accepted_with_warnings, removes_too_much, nothing_to_commit, bad_input, unreadable_file,
        no_plugin},
       "vpnval check --all-faults --output junit=report.xml commits/*/"},
      {"show", {accepted, bad_input, unreadable_file}, "vpnval show night/42 /IF-MIB"},
      {"explain", {accepted}, "vpnval explain pw-id-twice"},
      {"headroom",
       {accepted, rejected, bad_input, unreadable_file, no_plugin},
       "vpnval headroom night/42 --element small.json --element large.json"},
      {"map", {accepted, bad_input, unreadable_file, no_plugin}, "vpnval map night/42 -o map.html"},
      {"plan", {accepted, rejected, bad_input, unreadable_file, no_plugin}, "vpnval plan night/42 -o steps"},
      {"apply",
       {accepted, bad_input, unreadable_file},
       "vpnval apply --running running.xml --edit edit.xml -o candidate.xml"},
      {"profile",
       {accepted, bad_input, unreadable_file},
       "vpnval profile interfaces.xml --card card.json -o element.json"},
      {"audit",
       {accepted, rejected, accepted_with_warnings, bad_input, unreadable_file, no_plugin},
       "vpnval audit running.xml --element element.json"},
      {"fetch", {accepted, bad_input, no_session}, "vpnval fetch admin@pe1.example -o night/42"},
      {"serve",
       {accepted, bad_input, unreadable_file, no_plugin, no_session},
       "vpnval serve night/42 --listen 127.0.0.1:8300"},
      {"cost",
       {accepted, rejected, bad_input, unreadable_file, no_plugin},
       "vpnval cost night/42 --latency 500",
       {{accepted, "the costs are told, and every question holds its time"},
        {rejected, "with these latencies, a question does not hold its time"}}},
      {"coverage",
       {accepted, rejected, bad_input, unreadable_file, no_plugin},
       "vpnval coverage examples --random 100",
       {{accepted, "every expected cell is filled"}, {rejected, "expected cells are empty"}}},
      {"queue",
       {accepted, rejected, bad_input, unreadable_file, no_plugin},
       "vpnval queue --running running.xml --element element.json tonight/*.xml",
       {{accepted, "all changes go through"}, {rejected, "not all go through, or no order was found for all"}}},
      {"shrink",
       {accepted, bad_input, unreadable_file, no_plugin},
       "vpnval shrink night/42 -o examples/pw-id-moved-in-the-night"},
      {"recording",
       {accepted, bad_input, unreadable_file},
       "vpnval recording 0000000042-811-vpn_peer_valp-rejected.vpnrec"},
      {"replay",
       {accepted, rejected, bad_input, unreadable_file, no_plugin},
       "vpnval replay 0000000042-811-vpn_peer_valp-rejected.vpnrec --plugin new/libconfig_validate_vpn.so",
       {{accepted, "the library does the same"}, {rejected, "the library does not do the same"}}},
      {"diff",
       {accepted, rejected, accepted_with_warnings, bad_input, unreadable_file, no_plugin},
       "vpnval diff --plugin old.so --plugin new.so examples --random 10000",
       {{accepted, "nothing changed"},
        {rejected, "something changed that is not accepted"},
        {accepted_with_warnings, "accepted changes only, under --accept"},
        {internal, "internal error, or OLD gives two answers to a commit, so that the comparison is void"}}},
  };
  return helps;
}

/// Of a command that decides nothing, 0 is plain success.
std::string_view meaning_of(const ExitStatusMeaning &row, const CommandHelp &help) {
  for (const ExitStatusMeaning &own : help.own_meanings) {
    if (own.status == row.status) return own.meaning;
  }
  const bool decides = std::find(help.statuses.begin(), help.statuses.end(), rejected) != help.statuses.end();
  return row.status == accepted && !decides ? "done" : row.meaning;
}

std::string status_line(ExitStatus status, std::string_view meaning) {
  return fmt::format("  {:<4}{}\n", static_cast<int>(status), meaning);
}

}  // namespace

std::string help_footer(std::string_view command) {
  const auto &helps = command_helps();
  const auto help = std::find_if(helps.begin(), helps.end(), [=](const auto &row) { return row.command == command; });
  if (help == helps.end()) return {};
  std::string text = "Exit status:\n";
  for (const ExitStatusMeaning &row : exit_status_table) {
    const bool is_given = std::find(help->statuses.begin(), help->statuses.end(), row.status) != help->statuses.end() ||
                          std::find(kCommon.begin(), kCommon.end(), row.status) != kCommon.end();
    if (is_given) text += status_line(row.status, meaning_of(row, *help));
  }
  return fmt::format("{}\nExample:\n  {}\n", text, help->example);
}

std::string help_footer() {
  std::string text = "Exit status:\n";
  for (const ExitStatusMeaning &row : exit_status_table) text += status_line(row.status, row.meaning);
  return text;
}

std::vector<std::string> without_words(const std::vector<std::string> &arguments) {
  if (arguments.empty()) return arguments;
  if (arguments.front() == "version" && arguments.size() == 1) return {"--version"};
  if (arguments.front() != "help") return arguments;
  std::vector<std::string> options(arguments.begin() + 1, arguments.end());
  options.emplace_back("--help");
  return options;
}

}  // namespace cli
