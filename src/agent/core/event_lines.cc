#include "agent/core/event_lines.h"

#include <fmt/format.h>

#include <array>
#include <cmath>
#include <nlohmann/json.hpp>

namespace agent {
namespace {

using nlohmann::json;

constexpr std::array<const char *, 4> kDecisions{"accepted", "accepted-with-warnings", "rejected", "undecided"};

std::string dumped(const json &line) { return line.dump(-1, ' ', false, json::error_handler_t::replace); }

std::optional<json> parsed_answer(const std::string &line) {
  json answer = json::parse(line, nullptr, false);
  if (answer.is_object() && answer.contains("event")) return answer;
  return std::nullopt;
}

std::string finding_text(const json &finding) {
  const std::string rule = finding.value("rule", "");
  return fmt::format("\n    {}{} ({})", rule.empty() ? "" : rule + ": ", finding.value("message", ""),
                     finding.value("path", ""));
}

double in_milliseconds(double seconds) { return std::round(seconds * 1000) / 1000; }

}  // namespace

std::string answer_line(const Operation &operation, const Answer &answer) {
  json line{{"event", operation.name},
            {"decision", kDecisions.at(static_cast<std::size_t>(answer.decision))},
            {"session", operation.session},
            {"user", operation.user},
            {"seconds", in_milliseconds(answer.seconds)}};
  if (!answer.failure.empty()) line["failure"] = answer.failure;
  for (const Finding &finding : answer.findings) {
    if (!finding.from_device) continue;
    line["findings"].push_back({{"rule", finding.rule}, {"path", finding.path}, {"message", finding.message}});
  }
  return dumped(line);
}

std::optional<std::string> answer_text(const std::string &line) {
  const std::optional<json> answer = parsed_answer(line);
  if (!answer) return std::nullopt;
  std::string text =
      fmt::format("session {} ({}): {} {}, {:.3f} s", answer->value("session", 0), answer->value("user", ""),
                  answer->value("event", ""), answer->value("decision", ""), answer->value("seconds", 0.0));
  if (answer->contains("failure")) text += fmt::format("\n    {}", answer->value("failure", ""));
  for (const json &finding : answer->value("findings", json::array())) text += finding_text(finding);
  return text;
}

std::optional<std::string> timed_answer_line(const std::string &line, const std::string &time) {
  std::optional<json> answer = parsed_answer(line);
  if (!answer) return std::nullopt;
  (*answer)["time"] = time;
  return dumped(*answer);
}

std::string event_line(const std::vector<std::pair<std::string, std::string>> &texts,
                       const std::optional<std::pair<std::string, std::size_t>> &number) {
  json line = json::object();
  for (const auto &[name, text] : texts) line[name] = text;
  if (number) line[number->first] = number->second;
  return dumped(line);
}

}  // namespace agent
