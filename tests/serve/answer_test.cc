#include "agent/core/answer.h"

#include <gtest/gtest.h>

namespace {

using agent::Answer;
using agent::Decision;
using agent::read_answer;

process::Result printed(const std::string &out) {
  process::Result result;
  result.out = out;
  return result;
}

/// The document of a commit with this verdict.
std::string document_of(const std::string &verdict) {
  return R"({"commits": [{"name": "a", "status": 0, "verdict": )" + verdict + "}]}";
}

Answer failed(int status, int signal, const std::string &err) {
  process::Result result;
  result.exit_status = status;
  result.signal = signal;
  result.err = err;
  return read_answer(result);
}

const std::string rejection = R"({
  "decision": "rejected",
  "points": [
    {"name": "vpn_name_valp", "path": "/a", "verdict": "warning", "message": "a warning"},
    {"name": "vpn_overflow_valp", "path": "/b", "verdict": "accepted"},
    {"name": "vpn_peer_valp", "path": "/c", "verdict": "rejected", "message": "a rejection"}
  ],
  "findings": [
    {
      "rule": "pw-id-twice", "point": "vpn_peer_valp", "path": "/c", "message": "a rejection",
      "parties": [
        {"status": "added", "path": "/c", "details": [{"path": "/c/pw-id", "new": "7"}]},
        {"status": "unchanged", "path": "/d", "details": []}
      ],
      "advice": {"alternatives": [[{"status": "added", "path": "/c"}], [{"status": "added", "path": "/e"}]]},
      "repairs": [{"kind": "free-pw-ids", "path": "/c/pw-id", "values": ["8", "9"]}]
    }
  ]
})";

TEST(Answer, has_the_rejection_with_its_explanation_first) {
  const Answer answer = read_answer(printed(document_of(rejection)));
  EXPECT_EQ(answer.decision, Decision::rejected);
  EXPECT_EQ(answer.failure, "");
  EXPECT_EQ(answer.document, document_of(rejection));
  ASSERT_EQ(answer.findings.size(), 2u);
  EXPECT_EQ(answer.findings[0].rule, "pw-id-twice");
  EXPECT_EQ(answer.findings[0].point, "vpn_peer_valp");
  EXPECT_EQ(answer.findings[0].message, "a rejection");
  EXPECT_EQ(answer.findings[0].parties, (std::vector<std::string>{"added: /c, pw-id 7", "unchanged: /d"}));
  EXPECT_EQ(answer.findings[0].take_back, (std::vector<std::string>{"added: /c"}));
  EXPECT_EQ(answer.findings[0].instead, (std::vector<std::string>{"free-pw-ids for /c/pw-id: 8, 9"}));
  EXPECT_EQ(answer.findings[1].message, "a warning");
  EXPECT_EQ(answer.findings[1].point, "vpn_name_valp");
}

TEST(Answer, without_a_search_has_what_the_library_said) {
  const Answer answer = read_answer(printed(document_of(
      R"({"decision": "rejected", "points": [{"name": "p", "path": "/a", "verdict": "rejected", "message": "no"}]})")));
  EXPECT_EQ(answer.decision, Decision::rejected);
  ASSERT_EQ(answer.findings.size(), 1u);
  EXPECT_EQ(answer.findings[0].message, "no");
  EXPECT_EQ(answer.findings[0].rule, "");
}

TEST(Answer, may_be_without_findings_where_the_commit_is_accepted) {
  const Answer answer = read_answer(printed(document_of(R"({"decision": "accepted", "points": [], "findings": []})")));
  EXPECT_EQ(answer.decision, Decision::accepted);
  EXPECT_TRUE(answer.findings.empty());
}

TEST(Answer, is_none_where_there_is_no_document_with_a_decision) {
  for (const char *text : {"", "[]", "{", "7", "{}", R"({"commits": []})", R"({"commits": [{}, {}]})"}) {
    EXPECT_EQ(read_answer(printed(text)).failure, "vpnval check printed no document, status 0") << text;
  }
  for (const char *text : {R"({"commits": [{}]})", R"({"commits": [7]})", R"({"commits": [{"verdict": 7}]})"}) {
    EXPECT_EQ(read_answer(printed(text)).failure, "vpnval check printed no verdict") << text;
  }
  for (const char *text : {"{}", R"({"decision": 7})", R"({"decision": "rejected"})", R"({"decision": "maybe"})"}) {
    const Answer answer = read_answer(printed(document_of(text)));
    EXPECT_EQ(answer.failure, "vpnval check printed no decision") << text;
    EXPECT_EQ(answer.decision, Decision::undecided);
  }
}

TEST(Answer, is_none_where_the_commit_has_an_error) {
  EXPECT_EQ(read_answer(printed(R"({"commits": [{"status": 65, "error": "running.xml:1: wrong"}]})")).failure,
            "running.xml:1: wrong");
}

TEST(Answer, is_none_where_the_process_failed) {
  EXPECT_EQ(failed(0, 6, "begin\na.cc:1: Assertion `x' failed.\n").failure,
            "the library was stopped by signal 6: a.cc:1: Assertion `x' failed.");
  EXPECT_EQ(failed(65, 0, "vpnval: running.xml:1: wrong\n").failure, "vpnval: running.xml:1: wrong");
  EXPECT_EQ(failed(70, 0, "").failure, "vpnval check printed no document, status 70");
}

}  // namespace
