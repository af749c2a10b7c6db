#include "serve/event_log.h"

#include <gtest/gtest.h>

#include <sstream>

namespace {

using serve::EventLog;
using serve::LogFormat;

/// What is written of these lines of the agent.
std::string logged(LogFormat format, const std::vector<std::string> &lines) {
  std::ostringstream out;
  EventLog log(out, format, [] { return "T"; });
  for (const std::string &line : lines) log.agent_line(line);
  return out.str();
}

const std::string answer =
    R"({"event":"commit","decision":"rejected","session":3,"user":"ops","findings":[{"rule":"r","path":"/a","message":"no"}]})";

TEST(EventLog, tells_what_the_library_said) {
  EXPECT_EQ(logged(LogFormat::text, {answer}), "T session 3 (ops): commit rejected\n    r: no (/a)\n");
  EXPECT_EQ(logged(LogFormat::text, {R"({"event":"validate","decision":"undecided","failure":"why"})"}),
            "T session 0 (): validate undecided\n    why\n");
  EXPECT_EQ(
      logged(LogFormat::json, {answer}),
      R"({"decision":"rejected","event":"commit","findings":[{"message":"no","path":"/a","rule":"r"}],"session":3,)"
      R"("time":"T","user":"ops"})"
      "\n");
}

TEST(EventLog, passes_over_what_is_no_event) {
  EXPECT_EQ(logged(LogFormat::text, {"", "Warning: SIL code for module 'mpls' not found", "{", "{\"event\"", "[]"}),
            "");
}

TEST(EventLog, tells_of_sessions_and_edits) {
  const std::vector<std::string> lines{"Session 1 for ops@127.0.0.1 now active (base:1.1)",
                                       "edit-transaction 4: operation replace on session 1 by ops@127.0.0.1",
                                       "  data: /mpls:mpls", "Session 1 closed"};
  EXPECT_EQ(logged(LogFormat::text, lines),
            "T Session 1 for ops@127.0.0.1 now active (base:1.1)\n"
            "T edit-transaction 4: operation replace on session 1 by ops@127.0.0.1\n"
            "T   data: /mpls:mpls\n"
            "T Session 1 closed\n");
  EXPECT_EQ(logged(LogFormat::json, {lines[3]}),
            "{\"event\":\"session\",\"text\":\"Session 1 closed\",\"time\":\"T\"}\n");
}

TEST(EventLog, begins_with_how_to_reach_the_element) {
  std::ostringstream out;
  EventLog(out, LogFormat::text, [] { return "T"; }).ready("ssh -s", "127.0.0.1", 8300, "ops");
  EXPECT_EQ(out.str(),
            "ssh -s\n"
            "element ansible_host=127.0.0.1 ansible_port=8300 ansible_user=ops "
            "ansible_connection=ansible.netcommon.netconf\n");
}

TEST(EventLog, tells_who_comes_in) {
  std::ostringstream out;
  EventLog log(out, LogFormat::text, [] { return "T"; });
  log.sshd_line("Server listening on 127.0.0.1 port 8300.");
  log.sshd_line("Accepted publickey for ops from 127.0.0.1 port 41730 ssh2: ED25519 SHA256:x");
  EXPECT_EQ(out.str(), "T Accepted publickey for ops from 127.0.0.1 port 41730 ssh2: ED25519 SHA256:x\n");
}

}  // namespace
