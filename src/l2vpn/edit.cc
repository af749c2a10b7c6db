#include "l2vpn/edit.h"

#include <fmt/format.h>

#include <stdexcept>
#include <string>

#include "element/datastore/lookup.h"

namespace l2vpn {
namespace {

using element::child_named;
using element::Node;
using element::SchemaNode;
using element::Tree;
using element::Value;

/// The node that the names lead to, created where it is missing.
Node &below(Node &from, element::Names names) {
  Node *node = &from;
  for (const std::string_view child : names) node = &child_named(*node, child);
  return *node;
}

Value typed(const SchemaNode &leaf, std::string_view text) {
  if (auto value = element::value_from_text(leaf, text)) return *value;
  throw std::invalid_argument(fmt::format("\"{}\" is no value of {}", text, leaf.name));
}

template <typename Content>
Value typed(const SchemaNode &leaf, const Content &content) {
  return typed(leaf, std::string_view(fmt::to_string(content)));
}

/// The entry of the list that the names lead to, created where it is missing.
template <typename... Keys>
Node &entry_below(Node &from, element::Names names, const Keys &...keys) {
  Node &list = below(from, names);
  std::size_t position = 0;
  std::vector<Value> typed_keys;
  (typed_keys.push_back(typed(*list.schema->children[position++], keys)), ...);
  return element::put_entry(list, std::move(typed_keys));
}

template <typename Content>
void set_leaf_below(Node &from, std::string_view leaf, const Content &content) {
  Node &node = child_named(from, leaf);
  node.value = typed(*node.schema, content);
}

template <typename Content>
void set_if_present(Node &from, std::string_view leaf, const std::optional<Content> &content) {
  if (content) set_leaf_below(from, leaf, *content);
}

void set_flag(Node &from, std::string_view leaf, bool is_set) {
  if (is_set) child_named(from, leaf).value = element::Empty{};
}

Node &vpn_entry(Tree &tree, const VpnKey &key) {
  Node &group = entry_below(tree.root(), {name::mpls, name::l2vpn_config, name::l2vpn, group_list(key.family)},
                            std::string_view(key.group));
  return entry_below(group, {name::vpn}, std::string_view(key.name));
}

Node &bridge_domain_of(Tree &tree, const VpnKey &vpls_vpn) {
  return child_named(vpn_entry(tree, vpls_vpn), name::bridge_domain);
}

/// What a VPN's attachments stand in.
Node &parent_of_attachments(Node &vpn, Family family) {
  return family == Family::vpls ? child_named(vpn, name::bridge_domain) : vpn;
}

Node &parent_of_neighbors(Node &vpn, Family family) {
  return family == Family::vpls ? child_named(vpn, name::vfi) : vpn;
}

void write_attachment(Node &parent, const Attachment &attachment) {
  Node &entry = entry_below(parent, {name::access_interface}, std::string_view(attachment.interface));
  set_if_present(entry, name::dot1q, attachment.dot1q);
  if (attachment.untagged) set_flag(child_named(entry, name::encapsulation), name::untagged, true);
  for (const VlanRange &range : attachment.ranges) {
    entry_below(entry, {name::encapsulation, name::dot1q_range}, range.first, range.last);
  }
}

void write_neighbor(Node &parent, std::string_view list, const Neighbor &neighbor) {
  Node &entry = entry_below(parent, {list}, std::string_view(neighbor.address));
  set_if_present(entry, name::pw_id, neighbor.pw_id);
}

void set_or_erase(Tree &tree, const VpnKey &vpls_vpn, std::string_view leaf, std::optional<std::uint32_t> number) {
  if (number) {
    set_leaf_below(bridge_domain_of(tree, vpls_vpn), leaf, *number);
  } else {
    tree.erase(fmt::format("{}/{}", bridge_domain_path(vpls_vpn), leaf));
  }
}

}  // namespace

void ensure_vpn(Tree &tree, const VpnKey &key) { vpn_entry(tree, key); }

void put_vpn(Tree &tree, const Vpn &vpn) {
  ensure_vpn(tree, vpn.key);
  if (vpn.dot1q) set_dot1q(tree, vpn.key, vpn.dot1q);
  if (vpn.bridge_mtu) set_bridge_mtu(tree, vpn.key, vpn.bridge_mtu);
  if (vpn.transparent_lan_service) set_transparent_lan_service(tree, vpn.key, true);
  for (const Attachment &attachment : vpn.attachments) put_attachment(tree, vpn.key, attachment);
  for (const Neighbor &neighbor : vpn.neighbors) put_neighbor(tree, vpn.key, neighbor);
  for (const Neighbor &neighbor : vpn.backup_neighbors) put_backup_neighbor(tree, vpn.key, neighbor);
}

void erase_vpn(Tree &tree, const VpnKey &key) { tree.erase(vpn_path(key)); }

void put_attachment(Tree &tree, const VpnKey &vpn, const Attachment &attachment) {
  write_attachment(parent_of_attachments(vpn_entry(tree, vpn), vpn.family), attachment);
}

void erase_attachment(Tree &tree, const VpnKey &vpn, std::string_view interface) {
  tree.erase(attachment_path(vpn, interface));
}

void erase_attachments(Tree &tree, const VpnKey &vpn) { tree.erase(attachment_list_path(vpn)); }

void put_neighbor(Tree &tree, const VpnKey &vpn, const Neighbor &neighbor) {
  write_neighbor(parent_of_neighbors(vpn_entry(tree, vpn), vpn.family), name::neighbor, neighbor);
}

void erase_neighbor(Tree &tree, const VpnKey &vpn, std::string_view address) {
  tree.erase(neighbor_path(vpn, address));
}

void put_backup_neighbor(Tree &tree, const VpnKey &vpws_vpn, const Neighbor &neighbor) {
  write_neighbor(vpn_entry(tree, vpws_vpn), name::backup_neighbor, neighbor);
}

void erase_backup_neighbor(Tree &tree, const VpnKey &vpws_vpn, std::string_view address) {
  tree.erase(backup_neighbor_path(vpws_vpn, address));
}

void set_dot1q(Tree &tree, const VpnKey &vpls_vpn, std::optional<std::uint32_t> vlan) {
  set_or_erase(tree, vpls_vpn, name::dot1q, vlan);
}

void set_bridge_mtu(Tree &tree, const VpnKey &vpls_vpn, std::optional<std::uint32_t> bytes) {
  set_or_erase(tree, vpls_vpn, name::bridge_mtu, bytes);
}

void set_transparent_lan_service(Tree &tree, const VpnKey &vpls_vpn, bool is_on) {
  if (is_on) {
    set_flag(bridge_domain_of(tree, vpls_vpn), name::transparent_lan_service, true);
  } else {
    tree.erase(fmt::format("{}/{}", bridge_domain_path(vpls_vpn), name::transparent_lan_service));
  }
}

void put_static_member(Tree &tree, const StaticMember &member) {
  Node &vlan = entry_below(tree.root(), {name::config, name::vlan}, member.vlan);
  entry_below(vlan, {name::interface}, std::string_view(member.interface));
}

void erase_static_member(Tree &tree, const StaticMember &member) {
  tree.erase(static_member_path(member.vlan, member.interface));
}

void put_uplink(Tree &tree, const Uplink &uplink) {
  const std::string_view interface = uplink.interface;
  entry_below(tree.root(), {name::mpls, name::ldp, name::interface}, interface);
  if (!uplink.vlan) return;
  Node &layer3 = entry_below(tree.root(), {name::config, name::l3_interface}, interface);
  set_leaf_below(layer3, name::vlan, *uplink.vlan);
}

void erase_uplink(Tree &tree, std::string_view interface) { tree.erase(uplink_path(interface)); }

void put_snooping_interface(Tree &tree, const SnoopingInterface &snooping) {
  Node &instance = entry_below(tree.root(), {name::config, name::igmp_snooping}, snooping.instance);
  entry_below(instance, {name::interface}, std::string_view(snooping.interface));
}

void erase_snooping_interface(Tree &tree, const SnoopingInterface &snooping) {
  tree.erase(snooping_path(snooping.instance, snooping.interface));
}

void put_service_port(Tree &tree, const ServicePort &port) {
  Node &entry = entry_below(tree.root(), {name::config, name::service_port}, port.number);
  if (!port.vid && !port.any) return;
  Node &vlan_id = below(entry, {name::match, name::vlan, name::vlan_id});
  set_if_present(vlan_id, name::vid, port.vid);
  set_flag(vlan_id, name::any, port.any);
}

void erase_service_port(Tree &tree, std::uint32_t number) { tree.erase(service_port_path(number)); }

Tree make_tree(const element::Schema &schema, const Configuration &configuration) {
  Tree tree(schema);
  for (const Vpn &vpn : configuration.vpns) put_vpn(tree, vpn);
  for (const StaticMember &member : configuration.static_members) put_static_member(tree, member);
  for (const Uplink &uplink : configuration.uplinks) put_uplink(tree, uplink);
  for (const SnoopingInterface &snooping : configuration.snooping) put_snooping_interface(tree, snooping);
  for (const ServicePort &port : configuration.service_ports) put_service_port(tree, port);
  return tree;
}

}  // namespace l2vpn
