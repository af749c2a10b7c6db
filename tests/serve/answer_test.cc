#include "agent/core/answer.h"

#include <gtest/gtest.h>

namespace {

using agent::Answer;
using agent::DataNode;
using agent::Decision;

Answer read_answer(const process::Result &result) { return agent::read_answer(result, {"r.xml", "c.xml"}); }

/// "name=text" of a leaf, "name(child child)" of another node.
std::string shown(const DataNode &node) {
  if (node.children.empty()) return node.name + "=" + node.text;
  std::string text = node.name + "(";
  for (const DataNode &child : node.children) text += (text.ends_with('(') ? "" : " ") + shown(child);
  return text + ")";
}

std::vector<std::string> shown(const std::vector<DataNode> &nodes) {
  std::vector<std::string> texts;
  for (const DataNode &node : nodes) texts.push_back(shown(node));
  return texts;
}

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
      "rule": "pw-id-twice", "severity": "rejection", "from-device": true, "preexisting": false,
      "point": "vpn_peer_valp", "path": "/c", "message": "a rejection",
      "parties": [
        {"status": "added", "path": "/c", "group": "vpws-group a", "vpn": "b", "neighbor": "192.0.2.1",
         "details": [{"status": "added", "path": "/c/pw-id", "new": "7"}]},
        {"status": "unchanged", "path": "/d", "details": []}
      ],
      "triggers": [{"status": "changed", "path": "/t"}],
      "advice": {"alternatives": [[{"status": "added", "path": "/c"}, {"status": "changed", "path": "/f", "old": "1"}],
                                  [{"status": "added", "path": "/e"}]], "enough": 0, "choices": []},
      "repairs": [{"kind": "free-pw-ids", "path": "/c/pw-id", "values": ["8", "9"], "on-all-ports": false}]
    },
    {
      "rule": "vpn-limit", "severity": "rejection", "from-device": false, "point": "vpn_overflow_valp", "path": "/b",
      "message": "too many", "advice": {"alternatives": [], "enough": 2, "choices": [{"status": "added", "path": "/g"}]}
    }
  ]
})";

TEST(Answer, has_the_rejection_with_its_explanation_first) {
  const Answer answer = read_answer(printed(document_of(rejection)));
  EXPECT_EQ(answer.decision, Decision::rejected);
  EXPECT_EQ(answer.failure, "");
  EXPECT_EQ(answer.document, document_of(rejection));
  ASSERT_EQ(answer.findings.size(), 3u);
  EXPECT_EQ(answer.findings[0].rule, "pw-id-twice");
  EXPECT_EQ(answer.findings[0].path, "/c");
  EXPECT_EQ(answer.findings[0].message, "a rejection");
  EXPECT_EQ(
      shown(answer.findings[0].data),
      (std::vector<std::string>{"rule=pw-id-twice", "severity=rejection", "from-device=true",
                                "validation-point=vpn_peer_valp", "node=/c", "message=a rejection", "preexisting=false",
                                "party(status=added path=/c group=vpws-group a vpn=b neighbor=192.0.2.1 "
                                "detail(status=added path=/c/pw-id new=7))",
                                "party(status=unchanged path=/d)", "trigger(status=changed path=/t)",
                                "advice(alternative(part(status=added path=/c) part(status=changed path=/f old=1)) "
                                "alternative(part(status=added path=/e)))",
                                "repair(kind=free-pw-ids path=/c/pw-id value=8 value=9 on-all-ports=false)"}));
}

TEST(Answer, has_further_faults_and_what_was_not_looked_into) {
  const Answer answer = read_answer(printed(document_of(rejection)));
  ASSERT_EQ(answer.findings.size(), 3u);
  EXPECT_TRUE(answer.findings[0].from_device);
  EXPECT_FALSE(answer.findings[1].from_device);
  EXPECT_EQ(shown(answer.findings[1].data),
            (std::vector<std::string>{"rule=vpn-limit", "severity=rejection", "from-device=false",
                                      "validation-point=vpn_overflow_valp", "node=/b", "message=too many",
                                      "advice(enough=2 choice(status=added path=/g))"}));
  EXPECT_TRUE(answer.findings[2].from_device);
  EXPECT_EQ(shown(answer.findings[2].data),
            (std::vector<std::string>{"severity=warning", "from-device=true", "validation-point=vpn_name_valp",
                                      "node=/a", "message=a warning"}));
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
  const Answer answer =
      read_answer(printed(R"({"commits": [{"status": 65, "error": "e.json:1: wrong", "place": {"file": "e.json"}}]})"));
  EXPECT_EQ(answer.failure, "e.json:1: wrong");
  EXPECT_EQ(answer.kind, agent::Failure::undecided);
}

TEST(Answer, is_an_internal_fault_where_what_the_agent_accepted_is_refused) {
  const Answer answer = read_answer(
      printed(R"({"commits": [{"status": 65, "error": "c.xml:1: wrong", "place": {"file": "c.xml", "line": 1}}]})"));
  EXPECT_EQ(answer.decision, Decision::undecided);
  EXPECT_EQ(answer.kind, agent::Failure::internal_fault);
  EXPECT_EQ(answer.failure, "internal fault: vpnval does not read what the agent has accepted: c.xml:1: wrong");
}

TEST(Answer, is_none_where_the_process_failed) {
  EXPECT_EQ(failed(0, 6, "begin\na.cc:1: Assertion `x' failed.\n").failure,
            "the library was stopped by signal 6: a.cc:1: Assertion `x' failed.");
  EXPECT_EQ(failed(65, 0, "vpnval: running.xml:1: wrong\n").failure, "vpnval: running.xml:1: wrong");
  EXPECT_EQ(failed(70, 0, "").failure, "vpnval check printed no document, status 70");
}

}  // namespace
