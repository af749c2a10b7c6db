#include "cli/command_line/serve_arguments.h"

#include <CLI/CLI.hpp>
#include <map>

#include "cli/command_line/budget.h"
#include "cli/command_line/choice.h"

namespace cli {
namespace {

using agent::WarningStyle;
using serve::LogFormat;

const std::map<std::string, WarningStyle> warning_styles{
    {"error", WarningStyle::error}, {"notify", WarningStyle::notify}, {"both", WarningStyle::both}};
const std::map<std::string, LogFormat> log_formats{{"text", LogFormat::text}, {"json", LogFormat::json}};

const std::map<std::string, bool> asks_at_edits{{"commit", false}, {"edit", true}};

constexpr int kLongestTimeout = 86'400;

}  // namespace

void add_serve(CLI::App &program, ServeArguments &serve) {
  CLI::App *command =
      program.add_subcommand("serve", "Serve an element over NETCONF that answers with the library's verdict");
  command->add_option("DIR", serve.directory, "Folder with element.json, and running.xml or .json")->type_name("");
  command->add_option("--element", serve.element, "Element profile (JSON)")->type_name("FILE");
  command->add_option("--running", serve.running, "Configuration to begin with (XML or JSON)")->type_name("FILE");
  command
      ->add_option("--listen", serve.listen,
                   "Address and port, as 127.0.0.1:8300; a free port of 127.0.0.1 unless it is given")
      ->type_name("ADDR:PORT");
  command
      ->add_option("--authorized-keys", serve.authorized_keys,
                   "Public keys that are let in; the caller's own unless it is given")
      ->type_name("FILE");
  command
      ->add_option("--state", serve.state, "Keep the running configuration and the host key there, and go on with them")
      ->option_text("DIR");
  command->add_flag("--with-startup", serve.has_startup,
                    "Have a startup configuration, from which an element that is served again begins");
  add_choice(*command, "--warnings", warning_styles, serve.warnings,
             "What a session is told of warnings: an rpc-error of severity warning (error, unless it is given), a "
             "notification, or both");
  add_choice(
      *command, "--ask", asks_at_edits, serve.asks_at_edits,
      "When the library is asked: at validate and commit (commit, unless it is given), or at each edit-config as "
      "well (edit)");
  add_choice(*command, "--log", log_formats, serve.log, "Format of the log; text unless it is given");
  command->add_option("--plugin", serve.plugin, "Validation library to ask")->type_name("FILE");
  command
      ->add_option_function<std::string>(
          "--budget",
          [&serve](const std::string &text) {
            parse_budget(text);
            serve.budget = text;
          },
          "Bound of the search for what draws a message, for each answer: as 500,2s, unless it is given")
      ->type_name("BUDGET");
  command
      ->add_option("--library-timeout", serve.library_timeout,
                   "Longest time for one answer, after which it is given up; 60 unless it is given")
      ->check(CLI::Range(1, kLongestTimeout))
      ->type_name("SECONDS");
}

}  // namespace cli
