#include "agent/core/finding_data.h"

#include <nlohmann/json.hpp>

namespace agent {
namespace {

using nlohmann::json;
using Nodes = std::vector<DataNode>;

void add_leaf(Nodes &nodes, const char *name, const std::string &text) {
  if (!text.empty()) nodes.push_back({name, text, {}});
}

/// A member that is a string, a number or a boolean, as a leaf of the same name.
void add_member(Nodes &nodes, const json &object, const char *name) {
  const auto found = object.find(name);
  if (found == object.end()) return;
  if (found->is_string()) add_leaf(nodes, name, found->get<std::string>());
  if (found->is_boolean() || found->is_number_unsigned()) add_leaf(nodes, name, found->dump());
}

/// An entry of the configuration, or a leaf, and what the commit does to it.
DataNode node_data(const char *name, const json &node) {
  DataNode data{name, "", {}};
  for (const char *member : {"status", "path", "old", "new", "group", "vpn", "interface", "neighbor"}) {
    add_member(data.children, node, member);
  }
  for (const json &detail : list_of(node, "details")) data.children.push_back(node_data("detail", detail));
  return data;
}

void add_advice(Nodes &nodes, const json &finding) {
  const auto advice = finding.find("advice");
  if (advice == finding.end() || !advice->is_object()) return;
  DataNode data{"advice", "", {}};
  for (const json &alternative : list_of(*advice, "alternatives")) {
    DataNode parts{"alternative", "", {}};
    for (const json &part : alternative) parts.children.push_back(node_data("part", part));
    data.children.push_back(std::move(parts));
  }
  const json &choices = list_of(*advice, "choices");
  if (!choices.empty()) add_member(data.children, *advice, "enough");
  for (const json &choice : choices) data.children.push_back(node_data("choice", choice));
  if (!data.children.empty()) nodes.push_back(std::move(data));
}

DataNode repair_data(const json &repair) {
  DataNode data{"repair", "", {}};
  for (const char *member : {"kind", "path"}) add_member(data.children, repair, member);
  for (const json &value : list_of(repair, "values")) {
    add_leaf(data.children, "value", value.is_string() ? value.get<std::string>() : value.dump());
  }
  add_member(data.children, repair, "on-all-ports");
  return data;
}

}  // namespace

std::string text_of(const json &object, const char *name) {
  const auto found = object.find(name);
  return found != object.end() && found->is_string() ? found->get<std::string>() : "";
}

const json &list_of(const json &object, const char *name) {
  static const json empty = json::array();
  const auto found = object.find(name);
  return found != object.end() && found->is_array() ? *found : empty;
}

Nodes finding_data(const json &finding) {
  Nodes nodes;
  for (const char *member : {"rule", "severity", "from-device"}) add_member(nodes, finding, member);
  add_leaf(nodes, "validation-point", text_of(finding, "point"));
  add_leaf(nodes, "node", text_of(finding, "path"));
  for (const char *member : {"message", "preexisting"}) add_member(nodes, finding, member);
  for (const json &party : list_of(finding, "parties")) nodes.push_back(node_data("party", party));
  for (const json &trigger : list_of(finding, "triggers")) nodes.push_back(node_data("trigger", trigger));
  add_advice(nodes, finding);
  for (const json &repair : list_of(finding, "repairs")) nodes.push_back(repair_data(repair));
  return nodes;
}

}  // namespace agent
