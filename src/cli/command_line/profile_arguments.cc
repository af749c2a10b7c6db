#include "cli/command_line/profile_arguments.h"

#include <CLI/CLI.hpp>

namespace cli {

void add_profile(CLI::App &program, ProfileArguments &profile) {
  CLI::App *command = program.add_subcommand("profile", "Make an element's profile of its operational data");
  command
      ->add_option("FILE", profile.files,
                   "Operational data of ietf-interfaces (XML or JSON), also as part of a whole device's")
      ->required()
      ->type_name("");
  command
      ->add_option("--card", profile.card,
                   "The line card: a name in the table of --cards, or without it a profile that has its limits")
      ->type_name("NAME");
  command->add_option("--cards", profile.cards, "Table of cards (JSON): the limits of each by its name")
      ->type_name("FILE");
  command->add_option("-o,--output", profile.output, "The profile; standard output unless it is given")
      ->option_text("FILE");
}

}  // namespace cli
