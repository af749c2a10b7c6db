#include "report/json/headroom_json.h"

#include <algorithm>
#include <array>
#include <nlohmann/json.hpp>
#include <optional>
#include <stdexcept>
#include <string_view>
#include <utility>

#include "report/decision_text.h"
#include "report/json/json_text.h"
#include "report/json/unreadable_json.h"

namespace report {
namespace {

using headroom::Answer;
using headroom::Limit;
using headroom::LimitState;
using headroom::LimitUsage;
using headroom::Measurement;
using host::Decision;
using nlohmann::ordered_json;

/// Grows when a field goes or changes its meaning; a field that is added leaves it.
constexpr int schema_version = 1;

template <typename Value, std::size_t count>
using Names = std::array<std::pair<Value, std::string_view>, count>;

constexpr Names<Limit, 7> limits{{{Limit::vpns, "vpns"},
                                  {Limit::pseudowires, "pseudowires"},
                                  {Limit::access_interfaces, "access-interfaces"},
                                  {Limit::encapsulation_vlans, "encapsulation-vlans"},
                                  {Limit::encapsulation_ranges, "encapsulation-ranges"},
                                  {Limit::interface_ranges, "interface-ranges"},
                                  {Limit::bridge_mtu, "bridge-mtu"}}};
constexpr Names<LimitState, 5> states{{{LimitState::measured, "measured"},
                                       {LimitState::exceeded, "exceeded"},
                                       {LimitState::stopped, "stopped"},
                                       {LimitState::no_room, "no-room"},
                                       {LimitState::no_limit, "no-limit"}}};

template <typename Value, std::size_t count>
std::string_view name_of(Value value, const Names<Value, count> &names) {
  const auto row = std::find_if(names.begin(), names.end(), [value](const auto &name) { return name.first == value; });
  return row == names.end() ? "?" : row->second;
}

template <typename Value, std::size_t count>
Value value_of(const ordered_json &json, const Names<Value, count> &names) {
  const auto text = json.get<std::string>();
  const auto row = std::find_if(names.begin(), names.end(), [&text](const auto &name) { return name.second == text; });
  if (row == names.end()) throw std::runtime_error("unknown name " + text);
  return row->first;
}

Decision decision_from(const ordered_json &json) {
  const auto text = json.get<std::string>();
  for (const Decision decision : {Decision::accepted, Decision::accepted_with_warnings, Decision::rejected}) {
    if (decision_name(decision) == text) return decision;
  }
  throw std::runtime_error("unknown decision " + text);
}

ordered_json answer_json(const Answer &answer) {
  ordered_json json;
  if (!answer.rule.empty()) json["rule"] = answer.rule;
  json["point"] = answer.point;
  json["message"] = answer.message;
  return json;
}

Answer answer_from(const ordered_json &json) {
  return {json.value("rule", ""), json.at("point").get<std::string>(), json.at("message").get<std::string>()};
}

ordered_json usage_json(const LimitUsage &usage) {
  ordered_json json{{"limit", name_of(usage.limit, limits)}};
  if (!usage.vpn.empty()) json["vpn"] = usage.vpn;
  if (!usage.interface.empty()) json["interface"] = usage.interface;
  json["standing"] = name_of(usage.state, states);
  if (usage.used) json["used"] = *usage.used;
  if (usage.allowed) json["allowed"] = *usage.allowed;
  if (usage.left) json["left"] = *usage.left;
  if (usage.stop) json["stop"] = answer_json(*usage.stop);
  return json;
}

std::optional<std::int64_t> number_from(const ordered_json &json, const char *field) {
  if (!json.contains(field)) return std::nullopt;
  return json.at(field).get<std::int64_t>();
}

LimitUsage usage_from(const ordered_json &json) {
  LimitUsage usage;
  usage.limit = value_of(json.at("limit"), limits);
  usage.vpn = json.value("vpn", "");
  usage.interface = json.value("interface", "");
  usage.state = value_of(json.at("standing"), states);
  usage.used = number_from(json, "used");
  usage.allowed = number_from(json, "allowed");
  usage.left = number_from(json, "left");
  if (json.contains("stop")) usage.stop = answer_from(json.at("stop"));
  return usage;
}

ordered_json element_json(const ElementHeadroom &element) {
  const Measurement &measurement = element.measurement;
  ordered_json json{{"file", element.file}, {"decision", decision_name(measurement.decision)}};
  json["answers"] = ordered_json::array();
  for (const Answer &answer : measurement.answers) json["answers"].push_back(answer_json(answer));
  write_unreadable(json, element.unreadable);
  json["limits"] = ordered_json::array();
  for (const LimitUsage &usage : measurement.usages) json["limits"].push_back(usage_json(usage));
  return json;
}

ElementHeadroom element_from(const ordered_json &json) {
  ElementHeadroom element{json.at("file").get<std::string>(), {}, read_unreadable(json)};
  element.measurement.decision = decision_from(json.at("decision"));
  for (const auto &answer : json.at("answers")) element.measurement.answers.push_back(answer_from(answer));
  for (const auto &limit : json.at("limits")) element.measurement.usages.push_back(usage_from(limit));
  return element;
}

}  // namespace

void write_headroom_json(std::ostream &out, const HeadroomReport &report) {
  ordered_json json;
  json["schema-version"] = schema_version;
  json["program"] = {{"name", "vpnval"}, {"version", VPNVAL_VERSION}};
  json["library"] = {{"file", report.plugin_file}, {"build-id", report.build_id}};
  json["inputs"] = {{"running", report.running}, {"candidate", report.candidate}};
  json["elements"] = ordered_json::array();
  for (const ElementHeadroom &element : report.elements) json["elements"].push_back(element_json(element));
  // A message may end within a character: the library cuts long names at a number of bytes.
  out << json_text(json, 2) << '\n';
}

HeadroomReport read_headroom_json(std::string_view text) {
  const ordered_json json = ordered_json::parse(text);
  HeadroomReport report;
  report.plugin_file = json.at("library").at("file").get<std::string>();
  report.build_id = json.at("library").at("build-id").get<std::string>();
  report.running = json.at("inputs").at("running").get<std::string>();
  report.candidate = json.at("inputs").at("candidate").get<std::string>();
  for (const auto &element : json.at("elements")) report.elements.push_back(element_from(element));
  return report;
}

}  // namespace report
