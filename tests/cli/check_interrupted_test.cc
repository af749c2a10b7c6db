// A signal during the search: what was found by then is printed, and the status is that of the verdict.

#include <gtest/gtest.h>

#include <csignal>
#include <nlohmann/json.hpp>
#include <sstream>

#include "build_paths.h"
#include "tests/cli/commit_folder.h"

namespace {

const std::string rejected = SOURCE_DIR "/examples/access-two-vpns-one-vlan";

/// Runs the command and sends this process the signal when the search looks at the clock for the n-th time.
Outcome interrupted(int signal, int nth, const std::vector<std::string> &arguments) {
  std::ostringstream out;
  std::ostringstream err;
  cli::Environment environment = still_environment(out, err, "/nowhere/bin/vpnval", PLUGIN_FILE);
  int asked = 0;
  environment.clock = [&asked, signal, nth] {
    if (++asked == nth) std::raise(signal);
    return std::chrono::steady_clock::time_point();
  };
  const cli::ExitStatus status = cli::run(arguments, environment);
  EXPECT_GE(asked, nth) << "the search was over before";
  return {static_cast<int>(status), out.str(), err.str()};
}

TEST(CheckInterrupted, what_was_found_is_printed_with_the_status_of_the_verdict) {
  for (const int signal : {SIGINT, SIGTERM}) {
    const Outcome outcome = interrupted(signal, 3, {"check", "--all-faults", rejected});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_NE(outcome.out.find("\nwhat the device says: 1\n\n1. rejected [access-same-dot1q]: "), std::string::npos);
    EXPECT_NE(outcome.out.find("\nsearch stopped: interrupted; there may be further findings"), std::string::npos)
        << outcome.out;
    EXPECT_EQ(outcome.out.find("nothing else is wrong"), std::string::npos);
  }
}

TEST(CheckInterrupted, the_json_document_is_whole_and_says_so) {
  const Outcome outcome = interrupted(SIGINT, 3, {"check", "--format=json", rejected});
  const auto search = nlohmann::json::parse(outcome.out).at("search");
  EXPECT_EQ(search.at("ended-by"), "interrupted");
  EXPECT_EQ(search.at("complete"), false);
}

TEST(CheckInterrupted, a_search_leaves_the_signals_as_they_were) {
  interrupted(SIGINT, 3, {"check", rejected});
  for (const int signal : {SIGINT, SIGTERM}) {
    struct sigaction action {};
    ASSERT_EQ(sigaction(signal, nullptr, &action), 0);
    EXPECT_EQ(action.sa_handler, SIG_DFL);
  }
}

}  // namespace
