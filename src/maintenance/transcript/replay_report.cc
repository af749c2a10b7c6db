#include "maintenance/transcript/replay_report.h"

#include <fmt/format.h>

#include <array>
#include <nlohmann/json.hpp>

#include "maintenance/transcript/text.h"
#include "report/escape/printable.h"

namespace transcript {

namespace {

constexpr std::size_t kMostShown = 20;

std::string line_of(const replay::NumberedCall &numbered) {
  return fmt::format("{:>6}  {}{}\n", numbered.number, question_text(*numbered.call), answer_text(*numbered.call));
}

std::string verdict_line(const std::optional<std::int64_t> &verdict, const std::optional<std::string> &message) {
  const std::string text = message ? ": " + report::printable(*message) : "";
  return verdict_text(verdict) + text + "\n";
}

std::string divergence_text(const replay::Divergence &divergence) {
  std::string text;
  if (divergence.asked) {
    const std::string recorded = divergence.recorded ? question_text(*divergence.recorded) : "nothing more";
    text += fmt::format("diverged at call {}: asked {}, recorded {}\n", divergence.number,
                        question_text(*divergence.asked), recorded);
  } else {
    text += fmt::format("diverged before call {}: {}\n", divergence.number, divergence.reason);
  }
  if (!divergence.before.empty()) text += "before it\n";
  for (const replay::NumberedCall &call : divergence.before) text += line_of(call);
  return text;
}

std::string not_asked_text(const std::vector<replay::NumberedCall> &calls) {
  if (calls.empty()) return "";
  std::string text = fmt::format("recorded and not asked for: {}\n", calls.size());
  for (std::size_t i = 0; i < std::min(calls.size(), kMostShown); ++i) text += line_of(calls[i]);
  if (calls.size() > kMostShown) text += fmt::format("        and {} more\n", calls.size() - kMostShown);
  return text;
}

using Json = nlohmann::ordered_json;

Json json_of(const replay::NumberedCall &numbered) {
  return {
      {"number", numbered.number}, {"asked", question_text(*numbered.call)}, {"answered", answer_text(*numbered.call)}};
}

Json json_of(const std::vector<replay::NumberedCall> &calls) {
  Json list = Json::array();
  for (const replay::NumberedCall &call : calls) list.push_back(json_of(call));
  return list;
}

Json json_of_verdict(const std::optional<std::int64_t> &verdict, const std::optional<std::string> &message) {
  return {{"verdict", verdict_text(verdict)}, {"message", message ? Json(report::printable(*message)) : Json(nullptr)}};
}

Json json_of(const replay::Divergence &divergence) {
  return {{"call", divergence.number},
          {"asked", divergence.asked ? Json(question_text(*divergence.asked)) : Json(nullptr)},
          {"recorded", divergence.recorded ? Json(question_text(*divergence.recorded)) : Json(nullptr)},
          {"reason", divergence.reason},
          {"before", json_of(divergence.before)}};
}

}  // namespace

std::string replay_text(const recording::Recording &recording, const replay::Outcome &outcome) {
  const std::string recorded = "recorded  " + verdict_line(recording.trailer.verdict, recording.trailer.message);
  if (!outcome.crash.empty())
    return recorded + fmt::format("replayed  the library ended its process: {}\n", outcome.crash);
  if (outcome.divergence) return recorded + divergence_text(*outcome.divergence);
  std::string text = recorded + "replayed  " + verdict_line(outcome.verdict, outcome.message);
  text += not_asked_text(outcome.not_asked);
  return text + (outcome.is_same_as(recording) ? "the same\n" : "not the same\n");
}

std::string replay_json(const recording::Recording &recording, const replay::Outcome &outcome) {
  const bool has_verdict = !outcome.divergence && outcome.crash.empty();
  const Json json{{"same", outcome.is_same_as(recording)},
                  {"recorded-library", report::printable(recording.header.library)},
                  {"replayed-library", outcome.library},
                  {"recorded", json_of_verdict(recording.trailer.verdict, recording.trailer.message)},
                  {"replayed", has_verdict ? json_of_verdict(outcome.verdict, outcome.message) : Json(nullptr)},
                  {"crash", outcome.crash.empty() ? Json(nullptr) : Json(outcome.crash)},
                  {"divergence", outcome.divergence ? json_of(*outcome.divergence) : Json(nullptr)},
                  {"not-asked", json_of(outcome.not_asked)}};
  return json.dump(1) + '\n';
}

CommitAnswer commit_answer(const recording::Recording &recording, const std::optional<host::PointVerdict> &verdict) {
  CommitAnswer answer;
  if (!verdict) return answer;
  constexpr std::array<std::int64_t, 3> kVerdicts{0, -3, -1};
  answer.verdict = kVerdicts.at(static_cast<std::size_t>(verdict->answer));
  if (!verdict->text.empty()) answer.message = verdict->text;
  const bool says_same = answer.verdict == 0 || answer.message == recording.trailer.message;
  answer.is_same = answer.verdict == recording.trailer.verdict && says_same;
  return answer;
}

std::string commit_text(const recording::Recording &recording, const std::string &folder,
                        const std::vector<std::string> &made_up, const CommitAnswer &answer) {
  std::string text = fmt::format("written   {}\n", report::printable(folder));
  for (const std::string &what : made_up) text += fmt::format("made up   {}\n", report::printable(what));
  text += "recorded  " + verdict_line(recording.trailer.verdict, recording.trailer.message);
  text += answer.verdict ? "asked     " + verdict_line(answer.verdict, answer.message)
                         : fmt::format("asked     {} does not fire\n", report::printable(recording.header.point));
  return text + (answer.is_same ? "the same\n" : "not the same\n");
}

std::string commit_json(const recording::Recording &recording, const std::string &folder,
                        const std::vector<std::string> &made_up, const CommitAnswer &answer) {
  Json list = Json::array();
  for (const std::string &what : made_up) list.push_back(report::printable(what));
  const Json json{{"same", answer.is_same},
                  {"folder", report::printable(folder)},
                  {"made-up", list},
                  {"recorded", json_of_verdict(recording.trailer.verdict, recording.trailer.message)},
                  {"asked", answer.verdict ? json_of_verdict(answer.verdict, answer.message) : Json(nullptr)}};
  return json.dump(1) + '\n';
}

}  // namespace transcript
