#ifndef CLI_COMMAND_LINE_FETCH_ARGUMENTS_H
#define CLI_COMMAND_LINE_FETCH_ARGUMENTS_H

#include <chrono>
#include <string>

namespace CLI {
class App;
}

namespace cli {

struct FetchArguments {
  std::string host;  ///< as ssh takes it
  std::string output;
  bool candidate = false;  ///< the candidate, too
  int port = 830;
  std::chrono::milliseconds silence{60'000};  ///< of the element that is borne
};

const CLI::App *add_fetch(CLI::App &program, FetchArguments &fetch);

}  // namespace cli

#endif
