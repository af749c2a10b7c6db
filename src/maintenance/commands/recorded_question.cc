#include "maintenance/commands/recorded_question.h"

#include <fmt/format.h>

#include "host/run/plugin.h"
#include "maintenance/replay/replay.h"

namespace maintenance {
namespace {

constexpr std::int64_t kAccepted = 0;
constexpr std::int64_t kWarned = -3;

replay::Outcome outcome_of(const recording::Recording &recording, const std::filesystem::path &library) {
  try {
    return replay::replay(recording, library);
  } catch (const replay::ReplayError &error) {
    throw host::LoadError(library.string() + ": " + error.what());
  }
}

void set_verdict(Answer &answer, const recording::Recording &recording, const replay::Outcome &outcome) {
  const std::int64_t verdict = outcome.verdict.value_or(kAccepted);
  host::PointVerdict point{recording.header.point, "the recorded node", host::Answer::accepted,
                           outcome.message.value_or("")};
  if (verdict == kWarned) {
    point.answer = host::Answer::warned;
    answer.decision = host::Decision::accepted_with_warnings;
  } else if (verdict != kAccepted) {
    point.answer = host::Answer::rejected;
    answer.decision = host::Decision::rejected;
  }
  answer.points.push_back(std::move(point));
}

}  // namespace

Answer ask_recorded(const recording::Recording &recording, const std::filesystem::path &library) {
  const replay::Outcome outcome = outcome_of(recording, library);
  Answer answer;
  if (outcome.divergence) {
    answer.end = AnswerEnd::diverged;
    answer.failure = fmt::format("diverged at call {}", outcome.divergence->number);
  } else if (!outcome.crash.empty()) {
    answer.end = AnswerEnd::died;
    answer.failure = outcome.crash;
  } else {
    set_verdict(answer, recording, outcome);
  }
  return answer;
}

}  // namespace maintenance
