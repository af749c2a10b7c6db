#include "tests/diagnosis/resource.h"

#include <algorithm>
#include <bitset>
#include <optional>

#include "element/datastore/lookup.h"

namespace brute_force {
namespace {

using element::Node;

/// VLAN 0 stands for untagged frames.
using Vlans = std::bitset<4096>;

const std::set<std::string> kVlanRules{"access-same-dot1q", "access-static-member", "member-same-dot1q",
                                       "access-range-at-bridge-domain"};
const std::set<std::string> kPortRules{"access-port-based-twice",  "access-port-based-static-member",
                                       "member-on-port-based-vpn", "access-untagged-twice",
                                       "service-port-mixed-use",   "tls-beside-vpws",
                                       "access-igmp-snooping",     "access-on-uplink"};
const std::set<std::string> kPseudowireRules{"pw-id-twice", "pw-id-moved"};

const Node &node_of(const Entry &entry) { return entry.after != nullptr ? *entry.after : *entry.before; }

bool is_attachment(const Node &node) { return node.schema->name == "access-interface"; }
bool is_member(const Node &node) { return node.schema->name == "interface" && node.schema->parent->name == "vlan"; }

bool is_snooping(const Node &node) {
  return node.schema->name == "interface" && node.schema->parent->name == "igmp-snooping";
}

std::optional<std::string> port_of(const Entry &entry) {
  const Node &node = node_of(entry);
  if (!is_attachment(node) && !is_member(node) && !is_snooping(node)) return std::nullopt;
  return element::to_text(node.keys[0]);
}

/// The entry around another.
const Node &node_around(const MergedEntries &entries, const Entry &entry) {
  return node_of(entries[static_cast<std::size_t>(31 - __builtin_clz(entries.innermost(entry.needs)))]);
}

Vlans vlans_of_attachment(const Node &attachment, const Node &vpn) {
  Vlans vlans;
  for (const Node &range : element::entries_below(&attachment, {"encapsulation", "dot1q-range"})) {
    for (auto vlan = *element::number(range.keys[0]); vlan <= *element::number(range.keys[1]); ++vlan) vlans.set(vlan);
  }
  const bool is_vpls = attachment.schema->parent->name == "bridge-domain";
  const auto own =
      is_vpls ? element::number_below(&vpn, {"bridge-domain", "dot1q"}) : element::number_below(&attachment, {"dot1q"});
  if (own) vlans.set(*own);
  return vlans;
}

/// The VLANs of a port that every party claims which claims some.
Vlans vlans_in_common(const MergedEntries &entries, const Conflict &conflict, const std::string &port) {
  Vlans common;
  common.set();
  for (std::size_t entry = 0; entry < entries.size(); ++entry) {
    if (!holds(conflict.parties, entry) || port_of(entries[entry]) != port) continue;
    const Node &node = node_of(entries[entry]);
    const Node &around = node_around(entries, entries[entry]);
    Vlans vlans;
    if (is_member(node)) {
      vlans.set(*element::number(around.keys[0]));
    } else {
      vlans = vlans_of_attachment(node, around);
    }
    if (vlans.any()) common &= vlans;
  }
  return common;
}

std::set<std::string> ports_of(const MergedEntries &entries, const Conflict &conflict) {
  std::set<std::string> ports;
  for (std::size_t entry = 0; entry < entries.size(); ++entry) {
    if (!holds(conflict.parties, entry)) continue;
    if (const auto port = port_of(entries[entry])) ports.insert(*port);
  }
  return ports;
}

std::vector<std::string> in_common(const std::set<std::string> &one, const std::set<std::string> &other) {
  std::vector<std::string> common;
  std::set_intersection(one.begin(), one.end(), other.begin(), other.end(), std::back_inserter(common));
  return common;
}

bool share_a_vlan(const MergedEntries &entries, const Conflict &one, const Conflict &other) {
  for (const std::string &port : in_common(ports_of(entries, one), ports_of(entries, other))) {
    if ((vlans_in_common(entries, one, port) & vlans_in_common(entries, other, port)).any()) return true;
  }
  return false;
}

/// Address and pw-id: the one that the message names.
std::set<std::string> pseudowires_of(const MergedEntries &entries, const Conflict &conflict) {
  const std::string before = "The PW ID ";
  const std::string number =
      conflict.message.text.substr(before.size(), conflict.message.text.find(' ', before.size()) - before.size());
  std::set<std::string> pseudowires;
  for (std::size_t entry = 0; entry < entries.size(); ++entry) {
    if (!holds(conflict.parties, entry)) continue;
    pseudowires.insert(element::to_text(node_of(entries[entry]).keys[0]) + " " + number);
  }
  return pseudowires;
}

}  // namespace

bool share_a_resource(const MergedEntries &entries, const Conflict &one, const Conflict &other) {
  if (kVlanRules.count(one.message.rule) != 0) return share_a_vlan(entries, one, other);
  if (kPortRules.count(one.message.rule) != 0) {
    return !in_common(ports_of(entries, one), ports_of(entries, other)).empty();
  }
  if (kPseudowireRules.count(one.message.rule) != 0) {
    return !in_common(pseudowires_of(entries, one), pseudowires_of(entries, other)).empty();
  }
  return one.message == other.message;
}

}  // namespace brute_force
