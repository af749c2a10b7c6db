#include "report/json/advice_json.h"

#include <nlohmann/json.hpp>
#include <string_view>

#include "report/json/array.h"
#include "report/json/node_json.h"

namespace report {
namespace {

using nlohmann::ordered_json;
using Parts = std::vector<PartReport>;

ordered_json part_json(const PartReport &part) {
  ordered_json json = node_json(part.node);
  if (!part.details.empty()) json["details"] = array(part.details, node_json);
  return json;
}

PartReport read_part(const ordered_json &json) {
  PartReport part{read_node(json), {}};
  if (json.contains("details")) part.details = items<NodeReport>(json.at("details"), read_node);
  return part;
}

ordered_json parts_json(const Parts &parts) { return array(parts, part_json); }
Parts read_parts(const ordered_json &json) { return items<PartReport>(json, read_part); }

std::string_view kind_name(RepairKind kind) {
  switch (kind) {
    case RepairKind::free_vlans:
      return "free-vlans";
    case RepairKind::free_pw_ids:
      return "free-pw-ids";
    case RepairKind::interface_name:
      return "interface-name";
    case RepairKind::two_commits:
      return "two-commits";
  }
  return "?";
}

RepairKind read_kind(const std::string &name) {
  for (const auto kind :
       {RepairKind::free_vlans, RepairKind::free_pw_ids, RepairKind::interface_name, RepairKind::two_commits}) {
    if (kind_name(kind) == name) return kind;
  }
  throw UnknownNameError("kind \"" + name + "\" is none that is known");
}

}  // namespace

ordered_json advice_json(const AdviceReport &advice) {
  return {{"alternatives", array(advice.alternatives, parts_json)},
          {"enough", advice.enough},
          {"choices", parts_json(advice.choices)},
          {"minimal", advice.is_minimal},
          {"all-alternatives", advice.has_all_alternatives}};
}

AdviceReport read_advice(const ordered_json &json) {
  AdviceReport advice;
  advice.alternatives = items<Parts>(json.at("alternatives"), read_parts);
  advice.enough = json.at("enough").get<std::uint64_t>();
  advice.choices = read_parts(json.at("choices"));
  advice.is_minimal = json.at("minimal").get<bool>();
  advice.has_all_alternatives = json.at("all-alternatives").get<bool>();
  return advice;
}

ordered_json repair_json(const RepairReport &repair) {
  ordered_json json{{"kind", kind_name(repair.kind)}};
  if (!repair.path.empty()) json["path"] = repair.path;
  if (repair.place) json["place"] = place_json(*repair.place);
  json["values"] = repair.values;
  if (!repair.command.empty()) json["command"] = repair.command;
  if (repair.kind == RepairKind::free_vlans) json["on-all-ports"] = repair.on_all_ports;
  return json;
}

RepairReport read_repair(const ordered_json &json) {
  RepairReport repair;
  repair.kind = read_kind(json.at("kind").get<std::string>());
  repair.path = json.value("path", "");
  repair.place = optional_place(json, "place");
  repair.values = json.at("values").get<std::vector<std::string>>();
  repair.command = json.value("command", "");
  repair.on_all_ports = json.value("on-all-ports", false);
  return repair;
}

}  // namespace report
