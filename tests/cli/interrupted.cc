#include "tests/cli/interrupted.h"

#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <sstream>

#include "tests/support/build_under_test.h"

Outcome interrupted(int signal, int nth, const std::vector<std::string> &arguments) {
  std::ostringstream out;
  std::ostringstream err;
  cli::Environment environment = still_environment(out, err, "/nowhere/bin/vpnval", plugin_file());
  int asked = 0;
  environment.clock = [&asked, signal, nth] {
    if (++asked == nth) std::raise(signal);
    return std::chrono::steady_clock::time_point();
  };
  const cli::ExitStatus status = cli::run(arguments, environment);
  EXPECT_GE(asked, nth) << "the search was over before";
  return {static_cast<int>(status), out.str(), err.str()};
}
