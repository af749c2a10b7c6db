#include "cli/command_line/fetch_arguments.h"

#include <CLI/CLI.hpp>

namespace cli {
namespace {

constexpr double kLongestSilence = 86'400;

}  // namespace

const CLI::App *add_fetch(CLI::App &program, FetchArguments &fetch) {
  CLI::App *command = program.add_subcommand("fetch", "Fetch an element's configurations over NETCONF");
  command->add_option("HOST", fetch.host, "The element, as ssh takes it: [USER@]HOST, or a name of ssh's configuration")
      ->required()
      ->type_name("");
  command->add_option("-o,--output", fetch.output, "Folder for running.xml and candidate.xml; may be there")
      ->required()
      ->option_text("DIR");
  command->add_flag("--candidate", fetch.candidate, "Fetch the candidate configuration, too");
  command->add_option("--port", fetch.port, "Port of NETCONF over ssh; 830 unless it is given")
      ->check(CLI::Range(1, 65535))
      ->type_name("N");
  command
      ->add_option_function<double>(
          "--timeout",
          [&fetch](double seconds) { fetch.silence = std::chrono::milliseconds(static_cast<long>(seconds * 1000)); },
          "Give up after so many seconds in which the element says nothing; 60 unless it is given")
      ->check(CLI::Range(0.001, kLongestSilence))
      ->type_name("S");
  return command;
}

}  // namespace cli
