#include "headroom/configured_vpns.h"

#include <fmt/format.h>

#include "element/datastore/lookup.h"
#include "element/datastore/path.h"

namespace headroom {
namespace {

using element::Node;

constexpr std::string_view kVpnConfiguration = "/mpls/l2vpn-config/l2vpn/";

std::string_view group_list(Family family) { return family == Family::vpls ? "vpls-group" : "vpws-group"; }

std::string path_of(const Vpn &vpn) {
  return fmt::format("{}{}{{{}}}/vpn{{{}}}", kVpnConfiguration, group_list(vpn.family), element::quoted_key(vpn.group),
                     element::quoted_key(vpn.name));
}

std::string_view access_interface_list(Family family) {
  return family == Family::vpls ? "bridge-domain/access-interface" : "access-interface";
}

const Node *find_list(const Vpn &vpn) {
  if (vpn.family == Family::vpls) return element::find_below(vpn.entry, {"bridge-domain", "access-interface"});
  return element::find_below(vpn.entry, {"access-interface"});
}

}  // namespace

std::vector<Vpn> configured_vpns(const element::Tree &configuration, Family family) {
  std::vector<Vpn> found;
  const Node *groups = configuration.find(fmt::format("{}{}", kVpnConfiguration, group_list(family)));
  if (groups == nullptr) return found;
  for (const Node &group : groups->children) {
    for (const Node &vpn : element::entries_below(&group, {"vpn"})) {
      found.push_back({family, to_text(group.keys.front()), to_text(vpn.keys.front()), &vpn});
    }
  }
  return found;
}

std::string shown(const Vpn &vpn) { return fmt::format("{} {} vpn {}", group_list(vpn.family), vpn.group, vpn.name); }

Node &put_vpn(element::Tree &configuration, const Vpn &vpn) { return configuration.put(path_of(vpn)); }

const element::Nodes &access_interfaces(const Vpn &vpn) {
  static const element::Nodes none;
  const Node *list = find_list(vpn);
  return list == nullptr ? none : list->children;
}

const Node *find_access_interface(const Vpn &vpn, const std::string &interface) {
  const Node *list = find_list(vpn);
  return list == nullptr ? nullptr : list->find_entry({interface});
}

Node &put_access_interface(element::Tree &configuration, const Vpn &vpn, const std::string &interface) {
  return configuration.put(
      fmt::format("{}/{}{{{}}}", path_of(vpn), access_interface_list(vpn.family), element::quoted_key(interface)));
}

void drop_access_interfaces(element::Tree &configuration, const Vpn &vpn) {
  configuration.erase(fmt::format("{}/{}", path_of(vpn), access_interface_list(vpn.family)));
}

void add_range(Node &access_interface, std::uint16_t first, std::uint16_t last) {
  Node &ranges = element::child_named(element::child_named(access_interface, "encapsulation"), "dot1q-range");
  element::append_entry(ranges, {first, last});
}

const element::Nodes &ranges_of(const Node &access_interface) {
  return element::entries_below(&access_interface, {"encapsulation", "dot1q-range"});
}

}  // namespace headroom
