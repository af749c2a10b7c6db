#include "agent/core/answer.h"

#include <fmt/format.h>

#include <algorithm>
#include <nlohmann/json.hpp>
#include <string_view>

#include "agent/core/finding_data.h"

namespace agent {
namespace {

using nlohmann::json;

Finding read_finding(const json &object) {
  const auto device = object.find("from-device");
  const bool from_device = device == object.end() || *device != false;
  return {text_of(object, "rule"), text_of(object, "path"), text_of(object, "message"), from_device,
          finding_data(object)};
}

/// What a validation point said, in the shape of a finding that was not looked into.
json finding_of_point(const json &point) {
  json finding{{"severity", text_of(point, "verdict") == "rejected" ? "rejection" : "warning"}, {"from-device", true}};
  finding["point"] = text_of(point, "name");
  for (const char *member : {"path", "message"}) finding[member] = text_of(point, member);
  return finding;
}

/// The findings, and the messages of validation points without one, in the order of NETCONF's interest: the rejection
/// first.
std::vector<Finding> read_findings(const json &commit) {
  std::vector<Finding> findings;
  for (const json &object : list_of(commit, "findings")) findings.push_back(read_finding(object));
  const auto has = [&findings](const std::string &message) {
    return std::any_of(findings.begin(), findings.end(),
                       [&](const Finding &known) { return known.message == message; });
  };
  for (const json &point : list_of(commit, "points")) {
    if (text_of(point, "verdict") == "accepted" || has(text_of(point, "message"))) continue;
    const bool is_first = text_of(point, "verdict") == "rejected";
    findings.insert(is_first ? findings.begin() : findings.end(), read_finding(finding_of_point(point)));
  }
  return findings;
}

std::string last_line(std::string_view text) {
  while (text.ends_with('\n')) text.remove_suffix(1);
  return std::string(text.substr(text.rfind('\n') + 1));
}

/// Why there is no document.
std::string failure_of(const process::Result &result) {
  if (!result.not_started.empty()) return result.not_started;
  const std::string said = last_line(result.err);
  if (result.signal != 0) return fmt::format("the library was stopped by signal {}: {}", result.signal, said);
  return said.empty() ? fmt::format("vpnval check printed no document, status {}", result.exit_status) : said;
}

Decision decision_of(const std::string &name) {
  if (name == "accepted") return Decision::accepted;
  if (name == "accepted-with-warnings") return Decision::accepted_with_warnings;
  return name == "rejected" ? Decision::rejected : Decision::undecided;
}

/// Why the commit was not decided. The agent has accepted the configurations itself: where one of them is refused, the
/// two read the YANG modules in different ways.
void take_error(Answer &answer, const json &commit, const std::vector<std::string> &configurations) {
  answer.failure = text_of(commit, "error");
  const auto place = commit.find("place");
  const std::string file = place == commit.end() ? "" : text_of(*place, "file");
  if (std::find(configurations.begin(), configurations.end(), file) == configurations.end()) return;
  answer.kind = Failure::internal_fault;
  answer.failure = "internal fault: vpnval does not read what the agent has accepted: " + answer.failure;
}

void take_verdict(Answer &answer, const json &verdict) {
  answer.decision = decision_of(text_of(verdict, "decision"));
  answer.findings = read_findings(verdict);
  const bool has_message = answer.decision == Decision::accepted || !answer.findings.empty();
  if (answer.decision != Decision::undecided && has_message) return;
  answer.decision = Decision::undecided;
  answer.failure = "vpnval check printed no decision";
}

}  // namespace

Answer read_answer(const process::Result &result, const std::vector<std::string> &configurations) {
  Answer answer;
  const json document = json::parse(result.out, nullptr, false);
  if (!document.is_object() || list_of(document, "commits").size() != 1) {
    answer.failure = failure_of(result);
    return answer;
  }
  const json &commit = list_of(document, "commits").front();
  const auto verdict = commit.find("verdict");
  if (!text_of(commit, "error").empty()) {
    take_error(answer, commit, configurations);
  } else if (verdict == commit.end() || !verdict->is_object()) {
    answer.failure = "vpnval check printed no verdict";
  } else {
    take_verdict(answer, *verdict);
    answer.document = result.out;
  }
  return answer;
}

}  // namespace agent
