#include "l2vpn/configuration.h"

#include <algorithm>

#include "element/datastore/lookup.h"

namespace l2vpn {
namespace {

using element::entries_below;
using element::find_below;
using element::Node;
using element::number_below;

std::string key_of(const Node &entry) { return element::to_text(entry.keys.front()); }

std::uint32_t number_of(const element::Value &value) { return element::number(value).value_or(0); }

std::vector<VlanRange> read_ranges(const Node &attachment) {
  std::vector<VlanRange> ranges;
  for (const Node &range : entries_below(&attachment, {name::encapsulation, name::dot1q_range})) {
    ranges.push_back({number_of(range.keys.front()), number_of(range.keys.back())});
  }
  return ranges;
}

void read_attachments(const Node *parent, Vpn &vpn) {
  for (const Node &entry : entries_below(parent, {name::access_interface})) {
    vpn.attachments.push_back(read_attachment(entry));
  }
}

std::vector<Neighbor> read_neighbors(const Node *parent, std::string_view list) {
  std::vector<Neighbor> neighbors;
  for (const Node &entry : entries_below(parent, {list})) {
    neighbors.push_back({key_of(entry), number_below(&entry, {name::pw_id})});
  }
  return neighbors;
}

Vpn read_vpls_vpn(const VpnKey &key, const Node &entry) {
  const Node *bridge_domain = find_below(&entry, {name::bridge_domain});
  Vpn vpn{key, number_below(bridge_domain, {name::dot1q}), number_below(bridge_domain, {name::bridge_mtu}),
          find_below(bridge_domain, {name::transparent_lan_service}) != nullptr};
  read_attachments(bridge_domain, vpn);
  vpn.neighbors = read_neighbors(find_below(&entry, {name::vfi}), name::neighbor);
  return vpn;
}

Vpn read_vpws_vpn(const VpnKey &key, const Node &entry) {
  Vpn vpn{key};
  read_attachments(&entry, vpn);
  vpn.neighbors = read_neighbors(&entry, name::neighbor);
  vpn.backup_neighbors = read_neighbors(&entry, name::backup_neighbor);
  return vpn;
}

void read_vpns(const Node &root, Family family, std::vector<Vpn> &vpns) {
  for (const Node &group : entries_below(&root, {name::mpls, name::l2vpn_config, name::l2vpn, group_list(family)})) {
    for (const Node &entry : entries_below(&group, {name::vpn})) {
      const VpnKey key{family, key_of(group), key_of(entry)};
      vpns.push_back(family == Family::vpls ? read_vpls_vpn(key, entry) : read_vpws_vpn(key, entry));
    }
  }
}

void read_static_members(const Node &root, std::vector<StaticMember> &members) {
  for (const Node &vlan : entries_below(&root, {name::config, name::vlan})) {
    for (const Node &member : entries_below(&vlan, {name::interface})) {
      members.push_back({number_of(vlan.keys.front()), key_of(member)});
    }
  }
}

void read_uplinks(const Node &root, std::vector<Uplink> &uplinks) {
  const Node *layer3 = find_below(&root, {name::config, name::l3_interface});
  for (const Node &uplink : entries_below(&root, {name::mpls, name::ldp, name::interface})) {
    const Node *interface = layer3 == nullptr ? nullptr : layer3->find_entry(uplink.keys);
    uplinks.push_back({key_of(uplink), number_below(interface, {name::vlan})});
  }
}

void read_snooping(const Node &root, std::vector<SnoopingInterface> &interfaces) {
  for (const Node &instance : entries_below(&root, {name::config, name::igmp_snooping})) {
    for (const Node &interface : entries_below(&instance, {name::interface})) {
      interfaces.push_back({static_cast<std::int32_t>(number_of(instance.keys.front())), key_of(interface)});
    }
  }
}

void read_service_ports(const Node &root, std::vector<ServicePort> &ports) {
  for (const Node &port : entries_below(&root, {name::config, name::service_port})) {
    const Node *vlan_id = find_below(&port, {name::match, name::vlan, name::vlan_id});
    ports.push_back({number_of(port.keys.front()), number_below(vlan_id, {name::vid}),
                     find_below(vlan_id, {name::any}) != nullptr});
  }
}

}  // namespace

Attachment read_attachment(const Node &access_interface) {
  return {key_of(access_interface), number_below(&access_interface, {name::dot1q}),
          find_below(&access_interface, {name::encapsulation, name::untagged}) != nullptr,
          read_ranges(access_interface)};
}

const Attachment *Vpn::find_attachment(std::string_view interface) const {
  const auto found = std::find_if(attachments.begin(), attachments.end(), [interface](const Attachment &attachment) {
    return attachment.interface == interface;
  });
  return found == attachments.end() ? nullptr : &*found;
}

const Vpn *Configuration::find(const VpnKey &key) const {
  const auto found = std::find_if(vpns.begin(), vpns.end(), [&key](const Vpn &vpn) { return vpn.key == key; });
  return found == vpns.end() ? nullptr : &*found;
}

Configuration read_configuration(const element::Tree &tree) {
  Configuration configuration;
  read_vpns(tree.root(), Family::vpls, configuration.vpns);
  read_vpns(tree.root(), Family::vpws, configuration.vpns);
  read_static_members(tree.root(), configuration.static_members);
  read_uplinks(tree.root(), configuration.uplinks);
  read_snooping(tree.root(), configuration.snooping);
  read_service_ports(tree.root(), configuration.service_ports);
  return configuration;
}

}  // namespace l2vpn
