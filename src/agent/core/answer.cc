#include "agent/core/answer.h"

#include <fmt/format.h>

#include <algorithm>
#include <nlohmann/json.hpp>
#include <string_view>

namespace agent {
namespace {

using nlohmann::json;

std::string text_of(const json &object, const char *name) {
  const auto found = object.find(name);
  return found != object.end() && found->is_string() ? found->get<std::string>() : "";
}

const json &list_of(const json &object, const char *name) {
  static const json empty = json::array();
  const auto found = object.find(name);
  return found != object.end() && found->is_array() ? *found : empty;
}

std::string node_text(const json &node) {
  std::string text = fmt::format("{}: {}", text_of(node, "status"), text_of(node, "path"));
  for (const json &detail : list_of(node, "details")) {
    const std::string path = text_of(detail, "path");
    text += fmt::format(", {} {}", path.substr(path.find_last_of('/') + 1), text_of(detail, "new"));
  }
  return text;
}

std::string repair_text(const json &repair) {
  std::vector<std::string> values;
  for (const json &value : list_of(repair, "values")) {
    values.push_back(value.is_string() ? value.get<std::string>() : value.dump());
  }
  return fmt::format("{} for {}: {}", text_of(repair, "kind"), text_of(repair, "path"), fmt::join(values, ", "));
}

/// The parts of the change to take back, of the first way to do so.
std::vector<std::string> first_alternative(const json &finding) {
  std::vector<std::string> parts;
  const auto advice = finding.find("advice");
  if (advice == finding.end() || list_of(*advice, "alternatives").empty()) return parts;
  for (const json &part : list_of(*advice, "alternatives").front()) parts.push_back(node_text(part));
  return parts;
}

Finding read_finding(const json &object) {
  Finding finding{text_of(object, "rule"),
                  text_of(object, "point"),
                  text_of(object, "path"),
                  text_of(object, "message"),
                  {},
                  {},
                  {}};
  for (const json &party : list_of(object, "parties")) finding.parties.push_back(node_text(party));
  finding.take_back = first_alternative(object);
  for (const json &repair : list_of(object, "repairs")) finding.instead.push_back(repair_text(repair));
  return finding;
}

/// The findings of the messages that the points have set, in the order of NETCONF's interest: the rejection first. A
/// message that was not looked into is a finding without more.
std::vector<Finding> read_findings(const json &commit) {
  std::vector<Finding> findings;
  for (const json &object : list_of(commit, "findings")) findings.push_back(read_finding(object));
  const auto has = [&findings](const std::string &message) {
    return std::any_of(findings.begin(), findings.end(),
                       [&](const Finding &known) { return known.message == message; });
  };
  for (const json &point : list_of(commit, "points")) {
    if (text_of(point, "verdict") == "accepted" || has(text_of(point, "message"))) continue;
    Finding finding = read_finding(point);
    finding.point = text_of(point, "name");
    const bool is_first = text_of(point, "verdict") == "rejected";
    findings.insert(is_first ? findings.begin() : findings.end(), std::move(finding));
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

}  // namespace

Answer read_answer(const process::Result &result) {
  Answer answer;
  const json document = json::parse(result.out, nullptr, false);
  if (!document.is_object() || list_of(document, "commits").size() != 1) {
    answer.failure = failure_of(result);
    return answer;
  }
  const json &commit = list_of(document, "commits").front();
  answer.failure = text_of(commit, "error");
  const auto verdict = commit.find("verdict");
  if (!answer.failure.empty() || verdict == commit.end() || !verdict->is_object()) {
    if (answer.failure.empty()) answer.failure = "vpnval check printed no verdict";
    return answer;
  }
  answer.decision = decision_of(text_of(*verdict, "decision"));
  answer.findings = read_findings(*verdict);
  answer.document = result.out;
  const bool has_message = answer.decision == Decision::accepted || !answer.findings.empty();
  if (answer.decision != Decision::undecided && has_message) return answer;
  answer.decision = Decision::undecided;
  answer.failure = "vpnval check printed no decision";
  return answer;
}

}  // namespace agent
