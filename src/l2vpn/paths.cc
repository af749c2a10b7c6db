#include "l2vpn/paths.h"

#include <fmt/format.h>

#include "element/datastore/path.h"

namespace l2vpn {
namespace {

std::string entry(std::string_view list_path, std::string_view key) {
  return fmt::format("{}{{{}}}", list_path, element::quoted_key(key));
}

/// "PARENT/LIST{KEY}".
std::string entry_below(std::string_view parent, std::string_view list, std::string_view key) {
  return fmt::format("{}/{}{{{}}}", parent, list, element::quoted_key(key));
}

std::string below(std::string_view parent, std::string_view child) { return fmt::format("{}/{}", parent, child); }

std::string config_list(std::string_view list) { return fmt::format("/{}/{}", name::config, list); }

}  // namespace

std::string_view group_list(Family family) { return family == Family::vpls ? name::vpls_group : name::vpws_group; }

std::string to_text(const VpnKey &vpn) {
  return fmt::format("{} {} {} {}", group_list(vpn.family), vpn.group, name::vpn, vpn.name);
}

std::string group_path(Family family, std::string_view group) {
  const std::string parent = fmt::format("/{}/{}/{}", name::mpls, name::l2vpn_config, name::l2vpn);
  return entry_below(parent, group_list(family), group);
}

std::string vpn_path(const VpnKey &vpn) { return entry_below(group_path(vpn.family, vpn.group), name::vpn, vpn.name); }

std::string bridge_domain_path(const VpnKey &vpls_vpn) { return below(vpn_path(vpls_vpn), name::bridge_domain); }

std::string own_vlan_path(const VpnKey &vpn, std::string_view interface) {
  return below(vpn.family == Family::vpls ? bridge_domain_path(vpn) : attachment_path(vpn, interface), name::dot1q);
}

std::string attachment_list_path(const VpnKey &vpn) {
  return below(vpn.family == Family::vpls ? bridge_domain_path(vpn) : vpn_path(vpn), name::access_interface);
}

std::string attachment_path(const VpnKey &vpn, std::string_view interface) {
  return entry(attachment_list_path(vpn), interface);
}

std::string untagged_path(const VpnKey &vpn, std::string_view interface) {
  return fmt::format("{}/{}/{}", attachment_path(vpn, interface), name::encapsulation, name::untagged);
}

std::string range_path(const VpnKey &vpn, std::string_view interface, std::uint32_t first, std::uint32_t last) {
  return fmt::format("{}/{}/{}{{{} {}}}", attachment_path(vpn, interface), name::encapsulation, name::dot1q_range,
                     first, last);
}

std::string neighbor_path(const VpnKey &vpn, std::string_view address) {
  const std::string parent = vpn.family == Family::vpls ? below(vpn_path(vpn), name::vfi) : vpn_path(vpn);
  return entry_below(parent, name::neighbor, address);
}

std::string backup_neighbor_path(const VpnKey &vpws_vpn, std::string_view address) {
  return entry_below(vpn_path(vpws_vpn), name::backup_neighbor, address);
}

std::string static_member_path(std::uint32_t vlan, std::string_view interface) {
  return entry_below(entry(config_list(name::vlan), fmt::to_string(vlan)), name::interface, interface);
}

std::string uplink_path(std::string_view interface) {
  return entry_below(fmt::format("/{}/{}", name::mpls, name::ldp), name::interface, interface);
}

std::string layer3_interface_path(std::string_view interface) {
  return entry(config_list(name::l3_interface), interface);
}

std::string snooping_path(std::int32_t instance, std::string_view interface) {
  return entry_below(entry(config_list(name::igmp_snooping), fmt::to_string(instance)), name::interface, interface);
}

std::string service_port_path(std::uint32_t number) {
  return entry(config_list(name::service_port), fmt::to_string(number));
}

}  // namespace l2vpn
