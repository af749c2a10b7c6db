#include "maintenance/comparison/answer_change.h"

#include <gtest/gtest.h>

namespace {

using host::Decision;
using maintenance::Answer;
using maintenance::AnswerChange;
using maintenance::AnswerEnd;
using Changes = std::vector<AnswerChange>;

const std::string twice = "The PW ID 7 must be unique per neighbor";
const std::string moved =
    "The PW ID 7 was formerly assigned to VPN a from Group g. Delete VPN a, its neighbor or backup-neighbor before "
    "applying changes";

host::PointVerdict peer(host::Answer answer, const std::string &text = {}) {
  return {"vpn_peer_valp", "/path", answer, text};
}

Answer answer(std::vector<host::PointVerdict> points, Decision decision) {
  Answer answer;
  answer.points = std::move(points);
  answer.decision = decision;
  return answer;
}

const Answer accepts = answer({peer(host::Answer::accepted)}, Decision::accepted);
const Answer rejects = answer({peer(host::Answer::rejected, twice)}, Decision::rejected);

Changes changes(const Answer &before, const Answer &after) {
  return changes_between(before, after, {.trace = true, .calls = true});
}

TEST(AnswerChange, names_the_rule_that_speaks_now_or_spoke_before) {
  EXPECT_EQ(changes(rejects, rejects), Changes());
  EXPECT_EQ(changes(accepts, rejects), (Changes{{"pw-id-twice", "accepted->rejected"}}));
  EXPECT_EQ(changes(rejects, accepts), (Changes{{"pw-id-twice", "rejected->accepted"}}));
  EXPECT_EQ(verdict_direction(rejects, accepts), "rejected -> accepted");
}

TEST(AnswerChange, tells_other_words_from_another_rule) {
  Answer other = rejects;
  other.points[0].text = "The PW ID 8 must be unique per neighbor";
  EXPECT_EQ(changes(rejects, other), (Changes{{"pw-id-twice", "text"}}));
  EXPECT_EQ(verdict_direction(rejects, other), "other words");
  other.points[0].text = moved;
  EXPECT_EQ(changes(rejects, other), (Changes{{"pw-id-twice", "rejected->rejected:pw-id-moved"}}));
  other.points[0].text = "no rule says so";
  EXPECT_EQ(changes(rejects, other), (Changes{{"pw-id-twice", "rejected->rejected:unknown"}}));
}

TEST(AnswerChange, sees_what_stands_behind_the_first_rejection) {
  Answer before = rejects;
  before.points.push_back(peer(host::Answer::accepted));
  Answer after = before;
  after.points[1] = peer(host::Answer::warned, "no rule says so");
  EXPECT_EQ(changes(before, after), (Changes{{"unknown", "accepted->warned"}}));
  EXPECT_EQ(verdict_direction(before, after), "behind the first rejection");
  EXPECT_EQ(differing_lines(after, before, {}),
            std::vector<std::string>{"vpn_peer_valp at /path: warned [unknown]: no rule says so"});
}

TEST(AnswerChange, a_failure_is_the_librarys) {
  Answer died;
  died.end = AnswerEnd::died;
  died.failure = "died of SIGSEGV";
  EXPECT_EQ(changes(accepts, died), (Changes{{"library", "answered->died"}}));
  EXPECT_EQ(verdict_direction(accepts, died), "accepted -> died");
  EXPECT_EQ(changes(died, died), Changes());
  Answer aborted = died;
  aborted.failure = "died of SIGABRT";
  EXPECT_EQ(changes(died, aborted), (Changes{{"library", "died->died"}}));
  EXPECT_EQ(differing_lines(died, aborted, {}), std::vector<std::string>{"died of SIGSEGV"});
}

TEST(AnswerChange, trace_and_calls_count_where_they_are_asked_for) {
  Answer after = accepts;
  after.trace = {"a: line"};
  after.calls[static_cast<std::size_t>(host::SeamFunction::maapi_exists)] = 2;
  after.calls[static_cast<std::size_t>(host::SeamFunction::confd_data_set_timeout)] = 9;
  EXPECT_EQ(changes(accepts, after), (Changes{{"trace", "lines"}, {"calls", "maapi_exists:more"}}));
  EXPECT_EQ(changes(after, accepts), (Changes{{"trace", "lines"}, {"calls", "maapi_exists:fewer"}}));
  EXPECT_EQ(changes_between(accepts, after, {}), Changes());
  EXPECT_EQ(verdict_direction(accepts, after), "trace or calls");
}

}  // namespace
