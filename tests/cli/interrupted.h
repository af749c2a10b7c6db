#ifndef TESTS_CLI_INTERRUPTED_H
#define TESTS_CLI_INTERRUPTED_H

#include <string>
#include <vector>

#include "tests/cli/commit_folder.h"

/// Runs the command with the library and sends this process the signal when its search looks at the clock for the n-th
/// time. Fails the test where the search ends before.
Outcome interrupted(int signal, int nth, const std::vector<std::string> &arguments);

#endif
