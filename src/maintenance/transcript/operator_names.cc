#include "maintenance/transcript/operator_names.h"

#include <map>

#include "maintenance/recording/asked_path.h"

namespace transcript {

namespace {

using element::NodeKind;
using element::SchemaNode;
using recording::AgentValue;
using recording::Call;
using recording::Function;

const std::set<std::string_view> kListsOfNames{"vpls-group",     "vpws-group",   "vpn",
                                               "int-vpls-group", "int-vpls-vpn", "int-vpws-group"};

/// Whether the leaf holds the name of a group or a VPN.
bool is_operator_name(const SchemaNode &leaf) {
  if (leaf.name == "group" || leaf.name == "vpn") return true;
  return leaf.name == "name" && leaf.parent != nullptr && kListsOfNames.count(leaf.parent->name) != 0;
}

/// The leafs of an object in the order of its values; null for what is no leaf.
void add_leafs(const SchemaNode &object, std::vector<const SchemaNode *> &leafs) {
  for (const auto &child : object.children) {
    leafs.push_back(child->kind == NodeKind::leaf ? child.get() : nullptr);
    if (child->kind == NodeKind::container) add_leafs(*child, leafs);
  }
}

class NameFinder {
 public:
  explicit NameFinder(const element::Schema &schema) : schema_(schema) {}

  void find(const recording::Recording &recording) {
    find_in_path(recording.header.path);
    find_in_calls(recording.calls);
  }

  FoundNames names;

 private:
  void add(const SchemaNode *leaf, const AgentValue &value) {
    if (value.type != recording::kBuffer && value.type != recording::kString) return;
    const bool is_name = leaf != nullptr && is_operator_name(*leaf);
    (is_name ? names.of_operator : names.of_interfaces).insert(value.text);
  }

  void find_in_path(const recording::KeyPath &path) {
    const SchemaNode *node = &schema_.root();
    for (auto element = path.rbegin(); element != path.rend(); ++element) {
      const bool is_name = element->size() == 1 && element->front().type == recording::kXmlTag;
      if (is_name) {
        node = child_of_tag(node, static_cast<std::uint32_t>(element->front().bits));
      } else {
        for (std::size_t i = 0; i < element->size(); ++i) add(key_of(node, i), (*element)[i]);
      }
    }
  }

  static const SchemaNode *child_of_tag(const SchemaNode *node, std::uint32_t tag) {
    if (node == nullptr) return nullptr;
    for (const auto &child : node->children) {
      if (child->tag == tag) return child.get();
    }
    return nullptr;
  }

  static const SchemaNode *key_of(const SchemaNode *list, std::size_t index) {
    return list != nullptr && index < list->key_count ? list->children[index].get() : nullptr;
  }

  void find_in_calls(const std::vector<Call> &calls) {
    for (const Call &call : calls) {
      find_in_call(call);
      for (const recording::Callback &callback : call.callbacks) {
        find_in_path(callback.path);
        find_in_calls(callback.calls);
      }
    }
  }

  // Texts in calls of other functions are from the identifier manager: names of interfaces.
  void find_in_call(const Call &call) {
    switch (call.function) {
      case Function::maapi_init_cursor:
        if (const std::uint64_t number = cursor_of(call)) lists_[number] = node_of(call);
        return;
      case Function::maapi_get_next:
      case Function::maapi_find_next:
        return add_keys(lists_[cursor_of(call)], call.outputs, 1);
      case Function::maapi_get_objects:
        return add_objects(lists_[cursor_of(call)], call.outputs, number_at(call.arguments, 1));
      case Function::cdb_get_objects:
        return add_objects(node_of(call), call.outputs, number_at(call.arguments, 1));
      case Function::maapi_get_object:
        return add_objects(node_of(call), call.outputs, number_at(call.arguments, 2));
      case Function::limid_to_intfname:
      case Function::limid_from_intfname:
      case Function::valid_intfname:
        return add_interfaces(call);
      default:
        return;
    }
  }

  void add_interfaces(const Call &call) {
    for (const recording::Items *items : {&call.arguments, &call.outputs}) {
      for (const recording::Item &item : *items) {
        if (const auto *text = std::get_if<std::string>(&item)) names.of_interfaces.insert(*text);
      }
    }
  }

  const SchemaNode *node_of(const Call &call) const {
    return call.format ? schema_.find(recording::node_path(recording::asked_path(*call.format))) : nullptr;
  }

  static std::uint64_t cursor_of(const Call &call) {
    for (const recording::Item &item : call.arguments) {
      if (const auto *handle = std::get_if<recording::Handle>(&item)) return handle->number;
    }
    return 0;
  }

  static std::size_t number_at(const recording::Items &items, std::size_t index) {
    const auto *number = index < items.size() ? std::get_if<std::int64_t>(&items[index]) : nullptr;
    return number == nullptr || *number < 0 ? 0 : static_cast<std::size_t>(*number);
  }

  void add_keys(const SchemaNode *list, const recording::Items &outputs, std::size_t first) {
    for (std::size_t i = first; i < outputs.size(); ++i) {
      if (const auto *value = std::get_if<AgentValue>(&outputs[i])) add(key_of(list, i - first), *value);
    }
  }

  /// `outputs`: numbers, the second of which is that of the cursor's keys where there are two; these keys; and objects
  /// of `size` values each.
  void add_objects(const SchemaNode *object, const recording::Items &outputs, std::size_t size) {
    std::size_t first = 0;
    while (first < outputs.size() && std::holds_alternative<std::int64_t>(outputs[first])) ++first;
    if (first == 2) {
      const std::size_t keys = number_at(outputs, 1);
      const recording::Items standing(
          outputs.begin(), outputs.begin() + static_cast<std::ptrdiff_t>(std::min(first + keys, outputs.size())));
      add_keys(object, standing, first);
      first += keys;
    }
    std::vector<const SchemaNode *> leafs;
    if (object != nullptr) add_leafs(*object, leafs);
    for (std::size_t i = first; i < outputs.size() && size != 0; ++i) {
      const std::size_t place = (i - first) % size;
      const auto *value = std::get_if<AgentValue>(&outputs[i]);
      if (value != nullptr) add(place < leafs.size() ? leafs[place] : nullptr, *value);
    }
  }

  const element::Schema &schema_;
  std::map<std::uint64_t, const SchemaNode *> lists_;  ///< by cursor
};

}  // namespace

FoundNames find_names(const recording::Recording &recording, const element::Schema &schema) {
  NameFinder finder(schema);
  finder.find(recording);
  return std::move(finder.names);
}

}  // namespace transcript
