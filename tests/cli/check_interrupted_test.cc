// A signal during the search: what was found by then is printed, and the status is that of the verdict.

#include <gtest/gtest.h>

#include <csignal>
#include <nlohmann/json.hpp>

#include "source_dir.h"
#include "tests/cli/interrupted.h"

namespace {

const std::string rejected = SOURCE_DIR "/examples/access-two-vpns-one-vlan";

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
  const auto search = nlohmann::json::parse(verdict_in(outcome.out)).at("search");
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
