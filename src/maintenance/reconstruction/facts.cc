#include "maintenance/reconstruction/facts.h"

#include <fmt/format.h>

namespace reconstruction {

namespace {

using recording::AgentValue;
using recording::Call;
using recording::Function;
using recording::Items;
using recording::PathStep;

std::int64_t number_at(const Items &items, std::size_t index) {
  const auto *number = index < items.size() ? std::get_if<std::int64_t>(&items[index]) : nullptr;
  return number == nullptr ? 0 : *number;
}

/// A key path of the platform as steps of names; empty where the data model does not have it.
std::vector<PathStep> steps_of(const recording::KeyPath &path, const element::Schema &schema) {
  std::vector<PathStep> steps;
  const element::SchemaNode *node = &schema.root();
  for (auto element = path.rbegin(); element != path.rend(); ++element) {
    const bool is_name = element->size() == 1 && element->front().type == recording::kXmlTag;
    if (!is_name) {
      if (steps.empty()) return {};
      for (const AgentValue &key : *element) steps.back().keys.push_back(text_of(key));
      continue;
    }
    const element::SchemaNode *found = nullptr;
    for (const auto &child : node->children) {
      if (child->tag == static_cast<std::uint32_t>(element->front().bits)) found = child.get();
    }
    if (found == nullptr) return {};
    steps.push_back({found->name, {}});
    node = found;
  }
  return steps;
}

/// Objects of `size` values each.
void add_rows(const std::vector<PathStep> &path, const Items &outputs, std::size_t first, std::size_t size,
              std::vector<Row> &rows) {
  for (std::size_t i = first; size != 0 && i < outputs.size(); i += size) {
    Row row{recording::node_path(path), path, {}};
    for (std::size_t k = i; k < std::min(i + size, outputs.size()); ++k) {
      const auto *value = std::get_if<AgentValue>(&outputs[k]);
      row.values.push_back(value == nullptr ? AgentValue{} : *value);
    }
    rows.push_back(std::move(row));
  }
}

class FactCollector {
 public:
  FactCollector(const element::Schema &schema, Facts &facts) : schema_(schema), facts_(facts) {}

  void add(const std::vector<Call> &calls) {
    for (const Call &call : calls) {
      add(call);
      for (const recording::Callback &callback : call.callbacks) add(callback);
    }
  }

 private:
  void add(const recording::Callback &callback) {
    const auto operation = static_cast<Operation>(callback.operation);
    facts_.changes.push_back({steps_of(callback.path, schema_), operation, callback.new_value});
    add(callback.calls);
  }

  void add(const Call &call) {
    if (recording::is_of_feature_model(call.function)) return add_limit(call);
    if (call.result && *call.result < 0) return;
    const std::vector<PathStep> path = call.format ? recording::asked_path(*call.format) : std::vector<PathStep>();
    switch (call.function) {
      case Function::maapi_num_instances:
        facts_.counts.push_back({recording::node_path(path), path, call.result.value_or(0)});
        return;
      case Function::maapi_exists:
        if (call.result == 1) facts_.leafs.push_back({path, std::nullopt});
        return;
      case Function::maapi_get_elem:
      case Function::maapi_get_u_int32_elem:
      case Function::maapi_get_enum_value_elem:
        return add_leaf(path, call.outputs);
      case Function::maapi_get_object:
        return add_rows(path, call.outputs, 0, call.outputs.size(), facts_.candidate);
      case Function::cdb_num_instances:
        facts_.read_in_running.insert(recording::node_path(path));
        return;
      case Function::cdb_get_objects:
        return add_rows(path, call.outputs, 0, static_cast<std::size_t>(number_at(call.arguments, 1)), facts_.running);
      case Function::maapi_init_cursor:
        cursors_[cursor_of(call)] = path;
        return;
      case Function::maapi_get_next:
      case Function::maapi_find_next:
        return add_rows(cursors_[cursor_of(call)], call.outputs, 1, call.outputs.size(), facts_.candidate);
      case Function::maapi_get_objects:
        return add_objects(call);
      default:
        return add_identifiers(call);
    }
  }

  // The call's outputs are the number of objects, the cursor's number of keys, these keys, and then the objects.
  void add_objects(const Call &call) {
    const std::size_t first = 2 + static_cast<std::size_t>(number_at(call.outputs, 1));
    const auto size = static_cast<std::size_t>(number_at(call.arguments, 1));
    add_rows(cursors_[cursor_of(call)], call.outputs, first, size, facts_.candidate);
  }

  void add_leaf(const std::vector<PathStep> &path, const Items &outputs) {
    Leaf leaf{path, AgentValue{}};
    for (const recording::Item &output : outputs) {
      if (const auto *value = std::get_if<AgentValue>(&output)) leaf.value = *value;
      if (const auto *number = std::get_if<std::uint64_t>(&output)) leaf.value = {recording::kUint32, *number, ""};
      if (const auto *number = std::get_if<std::int64_t>(&output)) {
        leaf.value = {recording::kEnumValue, static_cast<std::uint64_t>(*number), ""};
      }
    }
    facts_.leafs.push_back(std::move(leaf));
  }

  void add_limit(const Call &call) {
    const auto *value = call.outputs.empty() ? nullptr : std::get_if<std::uint64_t>(&call.outputs[0]);
    if (value == nullptr || call.result != 0) return;
    const auto limit = static_cast<std::uint32_t>(*value);
    switch (call.function) {
      case Function::fm_scalar_card_hal_vpn_vpn_max_limit:
        facts_.card.vpn_max = limit;
        return;
      case Function::fm_scalar_card_vpn_mgr_access_ports:
        facts_.card.access_ports = limit;
        return;
      case Function::fm_scalar_card_selective_encapsulation_max_vlan_entries:
        facts_.card.selective_encapsulation_vlan_entries = limit;
        return;
      case Function::fm_scalar_card_selective_encapsulation_max_vlan_ranges:
        facts_.card.selective_encapsulation_vlan_ranges = limit;
        return;
      default:
        return;
    }
  }

  template <typename T>
  static T only(const Items &items) {
    const T *content = items.empty() ? nullptr : std::get_if<T>(&items[0]);
    return content == nullptr ? T{} : *content;
  }

  void add_identifiers(const Call &call) {
    switch (call.function) {
      case Function::valid_intfname:
        (call.result == 1 ? facts_.interfaces : facts_.unknown_interfaces).insert(only<std::string>(call.arguments));
        return;
      case Function::limid_from_intfname:
        return name_interface(only<std::string>(call.arguments), only<std::uint64_t>(call.outputs));
      case Function::limid_to_intfname:
        return name_interface(only<std::string>(call.outputs), only<std::uint64_t>(call.arguments));
      case Function::limid_to_ifindex:
        return index_interface(only<std::uint64_t>(call.arguments), only<std::int64_t>(call.outputs));
      case Function::limid_from_ifindex:
        return index_interface(only<std::uint64_t>(call.outputs), only<std::int64_t>(call.arguments));
      default:
        return;
    }
  }

  void name_interface(const std::string &name, std::uint64_t id) {
    facts_.logical_ids[name] = static_cast<std::uint32_t>(id);
    facts_.interfaces.insert(name);
  }

  void index_interface(std::uint64_t id, std::int64_t ifindex) {
    facts_.ifindexes[static_cast<std::uint32_t>(id)] = static_cast<std::int32_t>(ifindex);
  }

  static std::uint64_t cursor_of(const Call &call) {
    for (const recording::Item &item : call.arguments) {
      if (const auto *handle = std::get_if<recording::Handle>(&item)) return handle->number;
    }
    return 0;
  }

  const element::Schema &schema_;
  Facts &facts_;
  std::map<std::uint64_t, std::vector<PathStep>> cursors_;
};

}  // namespace

std::string text_of(const AgentValue &value) {
  switch (value.type) {
    case recording::kBuffer:
    case recording::kString:
      return value.text;
    case recording::kIpv4:
      return fmt::format("{}.{}.{}.{}", value.bits >> 24 & 255, value.bits >> 16 & 255, value.bits >> 8 & 255,
                         value.bits & 255);
    default:
      return std::to_string(static_cast<std::int64_t>(value.bits));
  }
}

Facts collect_facts(const recording::Recording &recording, const element::Schema &schema) {
  Facts facts;
  facts.node = steps_of(recording.header.path, schema);
  FactCollector collector(schema, facts);
  collector.add(recording.header.limits);
  collector.add(recording.calls);
  return facts;
}

}  // namespace reconstruction
