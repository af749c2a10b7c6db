#include "report/ci/sarif_rules.h"

#include <fmt/format.h>

#include <nlohmann/json.hpp>

#include "rules/rule.h"

namespace report {
namespace {

using nlohmann::ordered_json;

/// The message with SARIF's numbered placeholders for the library's.
std::string numbered_message(std::string_view format) {
  std::string text;
  int arguments = 0;
  for (std::size_t at = 0; at < format.size(); ++at) {
    if (format[at] == '%' && at + 1 < format.size()) {
      text += fmt::format("{{{}}}", arguments++);
      ++at;
    } else {
      text += sarif_text(format.substr(at, 1));
    }
  }
  return text;
}

ordered_json text_json(std::string_view text) { return {{"text", sarif_text(text)}}; }

ordered_json rule_json(const rules::Rule &rule) {
  const bool is_warning = rule.severity == rules::Severity::warning;
  ordered_json json{{"id", rule.id}};
  json["shortDescription"] = text_json(rule.provokes);
  json["fullDescription"] = text_json(rule.why);
  json["messageStrings"] = {{"default", {{"text", numbered_message(rule.message)}}}};
  json["help"] = text_json(fmt::format("{}\n\n{}\n\n{}", rule.provokes, rule.why, rule.remedy));
  json["defaultConfiguration"] = {{"level", is_warning ? "warning" : "error"}};
  json["properties"] = {{"validation-point", rule.point}};
  return json;
}

}  // namespace

ordered_json sarif_rules() {
  ordered_json json = ordered_json::array();
  for (const rules::Rule &rule : rules::all_rules()) json.push_back(rule_json(rule));
  return json;
}

std::string sarif_text(std::string_view text) {
  const bool may_link = text.find("](") != std::string_view::npos;
  std::string result;
  for (const char c : text) {
    if (may_link && (c == '[' || c == ']')) result += '\\';
    if (c == '{' || c == '}') result += c;
    result += c;
  }
  return result;
}

}  // namespace report
