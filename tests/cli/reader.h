#ifndef TESTS_CLI_READER_H
#define TESTS_CLI_READER_H

#include <string>

#include "tests/support/process.h"

/// Runs a Python script of this directory, with what it says on standard error. It is Debian's Python, for which the
/// readers of the formats are installed.
ProcessResult run_reader(const std::string &script, const std::string &arguments);

#endif
