#include "maintenance/replay/replay.h"

#include <gtest/gtest.h>

#include "maintenance/transcript/replay_report.h"
#include "source_dir.h"
#include "tests/maintenance/recording/recorded_run.h"
#include "tests/support/build_under_test.h"

namespace {

using recording::Call;
using recording::Function;
using recording::Recording;

/// The recording of the rejecting point of an example.
class Replay : public testing::Test {
 protected:
  static const Recording &recorded() {
    static const element::Schema schema;
    static const std::vector<Recording> recordings = recordings_of(schema, "access-two-vpns-one-vlan");
    return recordings.at(3);
  }

  static std::string replayed(const Recording &recording) {
    return transcript::replay_text(recording, replay::replay(recording, hookable_file()));
  }

  static std::string after_first_line(const std::string &text) { return text.substr(text.find('\n') + 1); }

  static Call &find(Recording &recording, Function function) {
    for (Call &call : recording.calls) {
      if (call.function == function) return call;
    }
    throw std::runtime_error("no such call");
  }
};

TEST_F(Replay, draws_what_was_drawn) {
  const replay::Outcome outcome = replay::replay(recorded(), hookable_file());
  EXPECT_TRUE(outcome.is_same_as(recorded()));
  EXPECT_EQ(outcome.verdict, -1);
  EXPECT_EQ(outcome.message, recorded().trailer.message);
  EXPECT_EQ(outcome.library, recorded().header.library);
}

TEST_F(Replay, of_another_answer_tells_the_call_that_was_not_recorded_and_those_before) {
  Recording changed = recorded();
  find(changed, Function::limid_to_ifindex).outputs = {std::int64_t{1002}};
  const replay::Outcome outcome = replay::replay(changed, hookable_file());
  ASSERT_TRUE(outcome.divergence.has_value());
  EXPECT_FALSE(outcome.is_same_as(changed));
  EXPECT_EQ(outcome.divergence->number, 11U);
  EXPECT_EQ(outcome.divergence->before.size(), 5U);
  const std::string text = after_first_line(replayed(changed));
  EXPECT_EQ(
      text.substr(0, text.find("     7  ")),
      "diverged at call 11: asked maapi_exists(7, 42, \"%s{1 %d %d}\", "
      "\"/KZ-VLAN-MANAGER-MIB:KZ-VLAN-MANAGER-MIB/vlanMgrStaticMemberTable/vlanMgrStaticMemberEntry\", 210, 1002), "
      "recorded maapi_exists(7, 42, \"%s{1 %d %d}\", "
      "\"/KZ-VLAN-MANAGER-MIB:KZ-VLAN-MANAGER-MIB/vlanMgrStaticMemberTable/vlanMgrStaticMemberEntry\", 210, 1001)\n"
      "before it\n"
      "     6  maapi_keypath_diff_iterate(7, 42, 0, "
      "\"/mpls/l2vpn-config/l2vpn/vpws-group{branches}/vpn{south}/access-interface{gigabit-ethernet-1/1/1}\") = 0\n");
}

TEST_F(Replay, past_the_end_of_the_recording_diverges) {
  Recording cut = recorded();
  cut.calls.resize(4);
  EXPECT_NE(replayed(cut).find("diverged at call 5: asked valid_intfname(\"gigabit-ethernet-1/1/1\"), recorded nothing "
                               "more\n"),
            std::string::npos)
      << replayed(cut);
}

TEST_F(Replay, tells_answers_that_were_not_asked_for) {
  Recording longer = recorded();
  longer.calls.push_back(longer.calls.front());
  EXPECT_NE(replayed(longer).find("recorded and not asked for: 1\n    25  qnconfd_maapi_socket_get(middleware 1) = 7\n"
                                  "not the same\n"),
            std::string::npos)
      << replayed(longer);
}

TEST_F(Replay, of_another_message_is_not_the_same) {
  Recording other = recorded();
  other.trailer.message = "another";
  EXPECT_NE(replayed(other).find("not the same\n"), std::string::npos);
}

// A bridge domain without an MTU is refused; one whose MTU cannot be read is not.
TEST_F(Replay, gives_failures_with_their_reason) {
  const element::Schema schema;
  Recording failing = recordings_of(schema, "service-port-bridge-mtu-missing").back();
  ASSERT_EQ(failing.trailer.verdict, -1);
  EXPECT_TRUE(replay::replay(failing, hookable_file()).is_same_as(failing));
  Call &call = find(failing, Function::maapi_get_elem);
  ASSERT_EQ(call.error, 1);
  call.error = 24;
  EXPECT_FALSE(replay::replay(failing, hookable_file()).is_same_as(failing));
}

// What the first calls of a process asked of the card, later ones do not ask again: a process that replays must.
TEST_F(Replay, knows_what_the_library_asked_before) {
  ASSERT_EQ(recorded().header.limits.size(), 4U);
  Recording without = recorded();
  without.header.limits.clear();
  EXPECT_NE(replayed(without).find("diverged at call 1: asked fm_init()"), std::string::npos) << replayed(without);
}

// The library extends its time 36 seconds after it last did, whatever the clock of the replay says.
TEST_F(Replay, extends_its_time_where_it_did) {
  constexpr std::int64_t kSeconds = 1'000'000'000;
  Recording late = recorded();
  ASSERT_TRUE(late.header.last_extension.has_value());
  *late.header.last_extension -= 37 * kSeconds;
  EXPECT_NE(replayed(late).find("diverged at call 3: asked confd_data_set_timeout(context 1, 120)"), std::string::npos)
      << replayed(late);
  Call extension;
  extension.function = Function::confd_data_set_timeout;
  extension.arguments = {recording::Handle{recording::HandleKind::context, 1}, std::int64_t{120}};
  extension.result = 0;
  late.calls.insert(late.calls.begin() + 2, extension);
  EXPECT_TRUE(replay::replay(late, hookable_file()).is_same_as(late)) << replayed(late);
}

TEST_F(Replay, of_outputs_that_no_such_call_has_is_refused) {
  Recording broken = recorded();
  find(broken, Function::maapi_get_next).outputs = {std::string("no number")};
  EXPECT_THROW(replay::replay(broken, hookable_file()), replay::ReplayError);
}

// Values of types that the rules do not expect end the process with an assertion.
TEST_F(Replay, tells_a_library_that_crashes) {
  Recording broken = recorded();
  find(broken, Function::maapi_get_next).outputs.at(1) = recording::AgentValue{recording::kUint32, 7, ""};
  const replay::Outcome outcome = replay::replay(broken, hookable_file());
  EXPECT_EQ(outcome.crash, "Aborted");
  EXPECT_FALSE(outcome.is_same_as(broken));
}

TEST_F(Replay, needs_a_library_whose_slots_can_be_written_to) {
  EXPECT_THROW(replay::replay(recorded(), bound_file()), replay::ReplayError);
  EXPECT_THROW(replay::replay(recorded(), SOURCE_DIR "/README.md"), replay::ReplayError);
  EXPECT_THROW(replay::replay(recorded(), "/nowhere/library.so"), replay::ReplayError);
}

}  // namespace
