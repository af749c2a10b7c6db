#include "serve/event_log.h"

#include <gtest/gtest.h>

#include "agent/core/event_lines.h"

namespace {

using serve::EventLog;
using serve::LogFormat;

EventLog log_into(std::string &out, LogFormat format = LogFormat::text) {
  return {[&out](const std::string &line) { out += line + '\n'; }, format, [] { return "T"; }};
}

/// What is written of these lines of the agent.
std::string logged(LogFormat format, const std::vector<std::string> &lines) {
  std::string out;
  EventLog log = log_into(out, format);
  for (const std::string &line : lines) log.agent_line(line);
  return out;
}

std::string rejected_line() {
  agent::Answer answer;
  answer.decision = agent::Decision::rejected;
  answer.seconds = 0.01249;
  answer.findings = {{"r", "/a", "no", true, {}}, {"s", "/b", "once the other is gone", false, {}}};
  return answer_line({"commit", 3, "ops"}, answer);
}

TEST(EventLog, tells_what_the_library_said) {
  EXPECT_EQ(logged(LogFormat::text, {rejected_line()}),
            "T session 3 (ops): commit rejected, 0.012 s\n    r: no (/a)\n");
  agent::Answer answer;
  answer.failure = "why";
  EXPECT_EQ(logged(LogFormat::text, {answer_line({"validate", 0, ""}, answer)}),
            "T session 0 (): validate undecided, 0.000 s\n    why\n");
  EXPECT_EQ(
      logged(LogFormat::json, {rejected_line()}),
      R"({"decision":"rejected","event":"commit","findings":[{"message":"no","path":"/a","rule":"r"}],"seconds":0.012,)"
      R"("session":3,"time":"T","user":"ops"})"
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
  std::string out;
  log_into(out).ready("ssh -s", "127.0.0.1", 8300, "ops");
  EXPECT_EQ(out,
            "ssh -s\n"
            "element ansible_host=127.0.0.1 ansible_port=8300 ansible_user=ops "
            "ansible_connection=ansible.netcommon.netconf\n");
  out.clear();
  log_into(out, LogFormat::json).ready("ssh -s", "127.0.0.1", 8300, "ops");
  EXPECT_EQ(out, R"({"address":"127.0.0.1","event":"ready","port":8300,"ssh":"ssh -s","time":"T","user":"ops"})"
                 "\n");
}

TEST(EventLog, tells_who_comes_in) {
  std::string out;
  EventLog log = log_into(out);
  log.sshd_line("Server listening on 127.0.0.1 port 8300.");
  log.sshd_line("Accepted publickey for ops from 127.0.0.1 port 41730 ssh2: ED25519 SHA256:x");
  EXPECT_EQ(out, "T Accepted publickey for ops from 127.0.0.1 port 41730 ssh2: ED25519 SHA256:x\n");
}

TEST(EventLog, tells_of_lines_that_were_dropped) {
  EXPECT_EQ(dropped_event(LogFormat::text, 7, "T"), "T 7 events were dropped: nobody read them");
  EXPECT_EQ(dropped_event(LogFormat::json, 7, "T"), R"({"count":7,"event":"dropped","time":"T"})");
}

}  // namespace
