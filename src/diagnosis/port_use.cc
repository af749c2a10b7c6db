#include "diagnosis/port_use.h"

#include <algorithm>
#include <string_view>

#include "element/datastore/lookup.h"

namespace diagnosis {
namespace {

using element::Node;

constexpr std::uint32_t kLastVlan = 4094;

std::string key_text(const Node &entry) { return element::to_text(entry.keys.front()); }

/// One of the two configurations; an entry that it lacks is null.
class Side {
 public:
  Side(const Entries &entries, bool is_running) : entries_(entries), is_running_(is_running) {}

  const Node *node(std::uint32_t entry) const {
    const MergedNode &node = entries_.node(entry);
    return is_running_ ? node.before : node.after;
  }

  std::optional<PortUse> port_use(std::uint32_t entry) const {
    const Node *own = node(entry);
    if (own == nullptr) return std::nullopt;
    const std::string_view name = own->schema->name;
    if (name == "service-port") return PortUse{"service-port-" + key_text(*own), {{0, kLastVlan}}};
    const std::uint32_t around = entries_[entry].parent;
    if (around == kNone) return std::nullopt;
    const Node *outer = node(around);
    if (name == "access-interface") return PortUse{key_text(*own), attachment_vlans(*own, outer)};
    if (name != "interface") return std::nullopt;
    if (outer->schema->name != "vlan") return PortUse{key_text(*own), {{0, kLastVlan}}};
    const std::uint32_t vlan = element::number(outer->keys.front()).value_or(0);
    return PortUse{key_text(*own), {{vlan, vlan}}};
  }

  std::optional<std::string> pseudowire(std::uint32_t entry) const {
    const Node *own = node(entry);
    if (own == nullptr || !own->schema->name.ends_with("neighbor")) return std::nullopt;
    const std::optional<std::uint32_t> pw_id = element::number_below(own, {"pw-id"});
    if (!pw_id) return std::nullopt;
    return key_text(*own) + " " + std::to_string(*pw_id);
  }

 private:
  static std::vector<Vlans> attachment_vlans(const Node &attachment, const Node *vpn) {
    std::vector<Vlans> vlans;
    if (element::find_below(&attachment, {"encapsulation", "untagged"}) != nullptr) vlans.push_back({0, 0});
    std::optional<std::uint32_t> own = element::number_below(&attachment, {"dot1q"});
    if (!own) own = element::number_below(vpn, {"bridge-domain", "dot1q"});
    if (own) vlans.push_back({*own, *own});
    for (const Node &range : element::entries_below(&attachment, {"encapsulation", "dot1q-range"})) {
      vlans.push_back(
          {element::number(range.keys.front()).value_or(0), element::number(range.keys.back()).value_or(0)});
    }
    if (vlans.empty()) vlans.push_back({0, kLastVlan});
    return vlans;
  }

  const Entries &entries_;
  bool is_running_;
};

}  // namespace

std::optional<PortUse> port_use(const Entries &entries, std::uint32_t entry) {
  return Side(entries, entries.node(entry).after == nullptr).port_use(entry);
}

std::optional<PortUse> former_port_use(const Entries &entries, std::uint32_t entry) {
  return Side(entries, true).port_use(entry);
}

std::optional<std::string> pseudowire(const Entries &entries, std::uint32_t entry) {
  return Side(entries, entries.node(entry).after == nullptr).pseudowire(entry);
}

std::optional<std::string> former_pseudowire(const Entries &entries, std::uint32_t entry) {
  return Side(entries, true).pseudowire(entry);
}

std::vector<Vlans> shared_vlans(const std::vector<Vlans> &a, const std::vector<Vlans> &b) {
  std::vector<Vlans> shared;
  for (const Vlans &one : a) {
    for (const Vlans &other : b) {
      const Vlans both{std::max(one.first, other.first), std::min(one.last, other.last)};
      if (both.first <= both.last) shared.push_back(both);
    }
  }
  return shared;
}

}  // namespace diagnosis
