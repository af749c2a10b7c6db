#ifndef CLI_COMMAND_LINE_PROFILE_ARGUMENTS_H
#define CLI_COMMAND_LINE_PROFILE_ARGUMENTS_H

#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace cli {

struct ProfileArguments {
  std::vector<std::string> files;
  std::string card;    ///< a name in `cards`, or a profile; empty: not known
  std::string cards;   ///< a table of cards; empty: none
  std::string output;  ///< a file; empty: standard output
};

void add_profile(CLI::App &program, ProfileArguments &profile);

}  // namespace cli

#endif
