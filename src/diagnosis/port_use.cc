#include "diagnosis/port_use.h"

#include <string_view>
#include <utility>

#include "element/datastore/lookup.h"
#include "l2vpn/port_claims.h"

namespace diagnosis {
namespace {

using element::Node;

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
    if (name == "service-port") return whole_port("service-port-" + key_text(*own));
    const std::uint32_t around = entries_[entry].parent;
    if (around == kNone) return std::nullopt;
    const Node *outer = node(around);
    if (name == "access-interface") return attachment_use(*own, outer);
    if (name != "interface") return std::nullopt;
    if (outer->schema->name != "vlan") return whole_port(key_text(*own));
    const std::uint32_t vlan = element::number(outer->keys.front()).value_or(0);
    return PortUse{key_text(*own), {{vlan, vlan}}, 0, 0};
  }

  std::optional<std::string> pseudowire(std::uint32_t entry) const {
    const Node *own = node(entry);
    if (own == nullptr || !own->schema->name.ends_with("neighbor")) return std::nullopt;
    const std::optional<std::uint32_t> pw_id = element::number_below(own, {"pw-id"});
    if (!pw_id) return std::nullopt;
    return key_text(*own) + " " + std::to_string(*pw_id);
  }

 private:
  static PortUse whole_port(std::string port) { return {std::move(port), {l2vpn::kWholePort}, 0, 0}; }

  static PortUse attachment_use(const Node &node, const Node *vpn) {
    const l2vpn::Attachment attachment = l2vpn::read_attachment(node);
    std::optional<std::uint32_t> own = attachment.dot1q;
    if (!own) own = element::number_below(vpn, {l2vpn::name::bridge_domain, l2vpn::name::dot1q});
    const bool has_encapsulation = attachment.untagged || !attachment.ranges.empty();
    PortUse use{attachment.interface, {}, 0, 0};
    for (const l2vpn::VlanClaim &claim : l2vpn::vlan_claims(attachment, own)) {
      use.vlans.push_back(claim.vlans);
      if (!has_encapsulation || claim.absorbed || claim.vlans == l2vpn::kUntagged) continue;
      ++use.counted_vlans;
      if (claim.vlans.first < claim.vlans.last) ++use.counted_ranges;
    }
    return use;
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
      if (const std::optional<Vlans> both = l2vpn::overlap(one, other)) shared.push_back(*both);
    }
  }
  return shared;
}

}  // namespace diagnosis
