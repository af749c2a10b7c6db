#ifndef CLI_INPUT_PLUGIN_FILE_H
#define CLI_INPUT_PLUGIN_FILE_H

#include <filesystem>
#include <string>

#include "cli/command_line/environment.h"

namespace cli {

/// The validation library to ask: the one named by option, else by VPNVAL_PLUGIN, else the one that stands with the
/// program, in a build or installed. Throws host::LoadError where there is none to try.
std::filesystem::path find_plugin_file(const std::string &option, const Environment &environment);

}  // namespace cli

#endif
