#ifndef CLI_COMMAND_LINE_SERVE_ARGUMENTS_H
#define CLI_COMMAND_LINE_SERVE_ARGUMENTS_H

#include <string>

#include "agent/core/settings.h"
#include "serve/event_log.h"

namespace CLI {
class App;
}

namespace cli {

struct ServeArguments {
  std::string directory;
  std::string element;
  std::string running;
  std::string listen;           ///< empty: any free port of this machine's own address
  std::string authorized_keys;  ///< empty: the caller's own public keys
  std::string state;            ///< a folder; empty: nothing is kept
  std::string plugin;
  std::string budget = "500,2s";
  int library_timeout = 60;  ///< seconds for one answer, at least 1
  bool asks_at_edits = false;
  bool has_startup = false;  ///< a startup configuration beside running
  agent::WarningStyle warnings = agent::WarningStyle::error;
  serve::LogFormat log = serve::LogFormat::text;
};

void add_serve(CLI::App &program, ServeArguments &serve);

}  // namespace cli

#endif
