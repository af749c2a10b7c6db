#include "tests/diagnosis/followed_advice/told_steps.h"

#include <fmt/format.h>

#include <algorithm>
#include <nlohmann/json.hpp>
#include <regex>
#include <sstream>
#include <stdexcept>

namespace followed {
namespace {

using nlohmann::json;

void add_part(const json &part, Steps &steps) {
  if (!part.contains("details")) return steps.push_back(part.at("path"));
  for (const json &detail : part.at("details")) steps.push_back(detail.at("path"));
}

Steps steps_of(const json &advice) {
  Steps steps;
  const auto enough = advice.at("enough").get<std::size_t>();
  for (std::size_t i = 0; i < enough; ++i) add_part(advice.at("choices").at(i), steps);
  if (enough != 0 || advice.at("alternatives").empty()) return steps;
  for (const json &part : advice.at("alternatives").at(0)) add_part(part, steps);
  return steps;
}

std::vector<std::string> lines_of(const std::string &text) {
  std::vector<std::string> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

/// The path behind "+ ", "- " or "~ ", up to its value, its changes or its place in a file.
std::string path_in(const std::string &part) {
  std::size_t depth = 0;
  for (std::size_t at = 2; at < part.size(); ++at) {
    if (part[at] == '{') ++depth;
    if (part[at] == '}') --depth;
    const bool is_end = depth == 0 && (part.compare(at, 2, ": ") == 0 || part.compare(at, 2, " (") == 0);
    if (is_end) return part.substr(2, at - 2);
  }
  return part.substr(2);
}

/// The parts that are listed from a line on: so many, or those of the set with the number 1.
Steps listed(const std::vector<std::string> &lines, std::size_t at, std::size_t parts, bool is_set) {
  static const std::regex line_of_part(R"(^     (1\) |   )?([-+~] /.*)$)");
  Steps steps;
  for (; at < lines.size() && steps.size() < parts; ++at) {
    std::smatch part;
    const bool is_part = std::regex_match(lines[at], part, line_of_part) && part[1].matched == is_set;
    if (!is_part) break;
    steps.push_back(path_in(part[2]));
  }
  if (!is_set && steps.size() != parts) throw std::runtime_error("a list that is cut: " + lines[at]);
  return steps;
}

/// What a line with "take back" and those below it tell.
Steps steps_at(const std::vector<std::string> &lines, std::size_t at, const std::string &told) {
  std::smatch number;
  if (std::regex_match(told, std::regex("[-+~] /.*"))) return {path_in(told)};
  if (std::regex_match(told, number, std::regex("these ([0-9]+):"))) {
    return listed(lines, at + 1, std::stoul(number[1]), false);
  }
  if (std::regex_match(told, std::regex("any one of these [0-9]+ sets, the whole of it:"))) {
    return listed(lines, at + 1, lines.size(), true);
  }
  if (std::regex_match(told, std::regex("any one of these [0-9]+:"))) return listed(lines, at + 1, 1, false);
  if (std::regex_match(told, number, std::regex("any ([0-9]+) of these [0-9]+:"))) {
    return listed(lines, at + 1, std::stoul(number[1]), false);
  }
  throw std::runtime_error("advice in unknown words: " + told);
}

}  // namespace

ToldSteps steps_in_json(const json &verdict) {
  ToldSteps told;
  for (const json &finding : verdict.at("findings")) told.of_findings.push_back(steps_of(finding.at("advice")));
  told.for_all = steps_of(verdict.at("advice"));
  return told;
}

ToldSteps steps_in_text(const std::string &text) {
  static const std::regex begin_of_finding(R"(^[0-9]+\. (rejected|warning).*)");
  static const std::regex advice_of_finding(R"(^   (   or|to do|to be rid of it): take back (.*)$)");
  static const std::regex advice_for_all(R"(^for the commit to be accepted.*: take back (.*)$)");
  const std::vector<std::string> lines = lines_of(text);
  ToldSteps told;
  for (std::size_t at = 0; at < lines.size(); ++at) {
    std::smatch match;
    if (std::regex_match(lines[at], begin_of_finding)) told.of_findings.emplace_back();
    if (std::regex_match(lines[at], match, advice_of_finding)) {
      told.of_findings.back() = steps_at(lines, at, match[2]);
    } else if (std::regex_match(lines[at], match, advice_for_all)) {
      told.for_all = steps_at(lines, at, match[1]);
    }
  }
  return told;
}

}  // namespace followed
