#include "report/json/node_json.h"

#include "report/json/array.h"

namespace report {
namespace {

using nlohmann::ordered_json;

std::optional<std::string> optional_text(const ordered_json &json, const char *name) {
  if (!json.contains(name)) return std::nullopt;
  return json.at(name).get<std::string>();
}

ChangeStatus read_status(const std::string &name) {
  for (const auto status : {ChangeStatus::unchanged, ChangeStatus::added, ChangeStatus::changed, ChangeStatus::removed,
                            ChangeStatus::in_force}) {
    if (status_name(status) == name) return status;
  }
  throw UnknownNameError("status \"" + name + "\" is none that is known");
}

}  // namespace

ordered_json place_json(const FilePlace &place) {
  ordered_json json{{"file", place.file}};
  if (place.line != 0) json["line"] = place.line;
  return json;
}

FilePlace read_place(const ordered_json &json) {
  return {json.at("file").get<std::string>(), json.value("line", std::size_t{0})};
}

std::optional<FilePlace> optional_place(const ordered_json &json, const char *name) {
  if (!json.contains(name)) return std::nullopt;
  return read_place(json.at(name));
}

ordered_json node_json(const NodeReport &node) {
  ordered_json json{{"status", status_name(node.status)}, {"path", node.path}};
  if (node.old_value) json["old"] = *node.old_value;
  if (node.new_value) json["new"] = *node.new_value;
  if (node.running) json["running"] = place_json(*node.running);
  if (node.candidate) json["candidate"] = place_json(*node.candidate);
  return json;
}

NodeReport read_node(const ordered_json &json) {
  NodeReport node;
  node.status = read_status(json.at("status").get<std::string>());
  node.path = json.at("path").get<std::string>();
  node.old_value = optional_text(json, "old");
  node.new_value = optional_text(json, "new");
  node.running = optional_place(json, "running");
  node.candidate = optional_place(json, "candidate");
  return node;
}

ordered_json party_json(const PartyReport &party) {
  ordered_json json = node_json(party.node);
  if (!party.group.empty()) json["group"] = party.group;
  if (!party.vpn.empty()) json["vpn"] = party.vpn;
  if (!party.interface.empty()) json["interface"] = party.interface;
  if (!party.neighbor.empty()) json["neighbor"] = party.neighbor;
  json["details"] = array(party.details, node_json);
  if (party.near_interfaces) json["not-in-profile"] = {{"near", *party.near_interfaces}};
  return json;
}

PartyReport read_party(const ordered_json &json) {
  PartyReport party;
  party.node = read_node(json);
  party.group = json.value("group", "");
  party.vpn = json.value("vpn", "");
  party.interface = json.value("interface", "");
  party.neighbor = json.value("neighbor", "");
  party.details = items<NodeReport>(json.at("details"), read_node);
  if (json.contains("not-in-profile")) {
    party.near_interfaces = json.at("not-in-profile").at("near").get<std::vector<std::string>>();
  }
  return party;
}

}  // namespace report
