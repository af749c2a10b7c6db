#ifndef CLI_PROGRAM_H
#define CLI_PROGRAM_H

#include <filesystem>

#include "cli/run.h"

namespace cli {

/// The file of the program that runs.
std::filesystem::path this_program();

/// What a main function does: makes an Environment of the process, with `program` as the executable beside which other
/// files are looked for, runs the command guarded, and returns the status to end with.
int run_program(int argc, char **argv, const std::filesystem::path &program, const Command &command);

}  // namespace cli

#endif
