// Makes the operator's nodes of the rows that the library read: the inverse of how the element derives its tables.

#include <charconv>

#include "l2vpn/edit.h"
#include "maintenance/reconstruction/builder.h"

namespace reconstruction {

namespace {

using l2vpn::Family;
using l2vpn::VpnKey;
using recording::AgentValue;

std::uint32_t number(const AgentValue &value) { return static_cast<std::uint32_t>(value.bits); }

std::optional<std::uint32_t> vlan(const AgentValue &value) {
  return value.bits == 0 ? std::nullopt : std::optional(number(value));
}

/// The text of an address whose first byte is the lowest of the number, as the derived tables have it.
std::string dotted(std::uint32_t peer) {
  return std::to_string(peer & 255) + '.' + std::to_string(peer >> 8 & 255) + '.' + std::to_string(peer >> 16 & 255) +
         '.' + std::to_string(peer >> 24);
}

void put_vpn(element::Tree &tree, Family family, const std::vector<std::string> *group, const std::string &vpn) {
  if (group != nullptr) l2vpn::ensure_vpn(tree, {family, group->at(0), vpn});
}

/// The interface whose encapsulation a path of derived nodes leads to.
std::optional<std::string> encapsulated_interface(const std::vector<recording::PathStep> &path) {
  if (const auto *vpls = keys_of(path, "int-vpls-ac")) return vpls->at(0);
  const auto *vpws = keys_of(path, "int-vpws-intf-encap");
  return vpws == nullptr || vpws->size() < 4 ? std::nullopt : std::optional(vpws->at(3));
}

}  // namespace

Builder::Builder(Facts facts, const element::Schema &schema)
    : facts_(std::move(facts)), interfaces_(facts_), candidate_(schema), running_(schema) {}

const std::vector<std::string> *keys_of(const std::vector<recording::PathStep> &path, std::string_view name) {
  for (const recording::PathStep &step : path) {
    if (step.name == name && !step.keys.empty()) return &step.keys;
  }
  return nullptr;
}

std::optional<VpnKey> vpn_of(const std::vector<recording::PathStep> &path) {
  for (const Family family : {Family::vpls, Family::vpws}) {
    const auto *group = keys_of(path, l2vpn::group_list(family));
    const auto *vpn = keys_of(path, l2vpn::name::vpn);
    if (group != nullptr && vpn != nullptr) return VpnKey{family, group->at(0), vpn->at(0)};
  }
  const auto *vpls_group = keys_of(path, "int-vpls-group");
  const auto *vpls_vpn = keys_of(path, "int-vpls-vpn");
  if (vpls_group != nullptr && vpls_vpn != nullptr) return VpnKey{Family::vpls, vpls_group->at(0), vpls_vpn->at(0)};
  for (const char *list : {"int-sub-vpls-vpn-bd", "int-sub-vpls-vpn-ac", "int-sub-vpls-vpn-nbr"}) {
    const auto *keys = keys_of(path, list);
    if (keys != nullptr && keys->size() >= 2) return VpnKey{Family::vpls, keys->at(0), keys->at(1)};
  }
  const auto *vpws = keys_of(path, "int-vpws-intf-encap");
  if (vpws != nullptr && vpws->size() >= 2) return VpnKey{Family::vpws, vpws->at(0), vpws->at(1)};
  return std::nullopt;
}

void Builder::put_rows() {
  for (const Row &row : facts_.candidate) put_row(candidate_, row);
}

void Builder::put_running_rows() {
  for (const std::string &list : facts_.read_in_running) {
    const bool is_vpls = list == "/internal/int-sub-vpls-vpn-nbr";
    for (const l2vpn::Vpn &vpn : l2vpn::read_configuration(running_).vpns) {
      if ((vpn.key.family == Family::vpls) != is_vpls) continue;
      for (const auto &neighbor : vpn.neighbors) l2vpn::erase_neighbor(running_, vpn.key, neighbor.address);
      for (const auto &backup : vpn.backup_neighbors) l2vpn::erase_backup_neighbor(running_, vpn.key, backup.address);
    }
  }
  for (const Row &row : facts_.running) put_row(running_, row);
}

void Builder::put_row(element::Tree &tree, const Row &row) {
  const Values &values = row.values;
  const auto is_row = [&row](std::string_view node, std::size_t size) {
    return row.node == node && row.values.size() >= size;
  };
  if (is_row("/internal/int-sub-vpls-vpn-ac", 4)) {
    put_attachment(tree, {Family::vpls, values[0].text, values[1].text}, {.interface = values[3].text});
  } else if (is_row("/internal/int-vpws-intf-app", 5)) {
    put_attachment(tree, {Family::vpws, values[0].text, values[1].text},
                   {.interface = values[3].text, .dot1q = vlan(values[4])});
  } else if (is_row("/internal/int-sub-vpls-vpn-nbr", 6)) {
    l2vpn::put_neighbor(tree, {Family::vpls, values[0].text, values[1].text}, {text_of(values[3]), number(values[5])});
  } else if (is_row("/internal/int-vpws-tunnel-idx", 6)) {
    put_pseudowire(tree, {Family::vpws, values[0].text, values[5].text}, values);
  } else if (is_row("/internal/int-vpws-group", 1)) {
    put_group(tree, Family::vpws, values[0].text);
  } else if (is_row("/internal/int-vpws-group/int-vpws", 1)) {
    put_vpn(tree, Family::vpws, keys_of(row.path, "int-vpws-group"), values[0].text);
  } else if (is_row("/internal/int-vpls-group/int-vpls-vpn", 1)) {
    put_vpn(tree, Family::vpls, keys_of(row.path, "int-vpls-group"), values[0].text);
  } else if (is_row("/internal/int-ldp-intf-l3", 3)) {
    put_uplink(tree, values);
  } else if (is_row("/KZ-VLAN-MANAGER-MIB/vlanMgrStaticMemberTable/vlanMgrStaticMemberEntry", 3)) {
    put_member(tree, values);
  } else if (is_row("/KZ-MGMD-ROUTER-MIB/mgmdRouterInterfaceTable/mgmdRouterInterfaceEntry", 2)) {
    const auto ifindex = static_cast<std::int32_t>(values[1].bits);
    l2vpn::put_snooping_interface(tree, {static_cast<std::int32_t>(values[0].bits), interfaces_.name_of(ifindex)});
  } else if (row.node.ends_with("-encap-dot1q-range") && values.size() >= 2) {
    put_range(row.path, values);
  } else if (is_row("/internal/int-vpls-group/int-vpls-vpn/int-vpls-bd", 1)) {
    put_bridge_domain(row.path, values);
  } else if (row.node == "/internal/int-vpls-group/int-vpls-vpn/int-vpls-bd/int-vpls-ac" && values.size() == 1) {
    if (const auto vpn = vpn_of(row.path)) put_attachment(tree, *vpn, {.interface = values[0].text});
  }
}

void Builder::put_group(element::Tree &tree, Family family, const std::string &group) {
  tree.put(l2vpn::group_path(family, group));
  tree.sort();
}

void Builder::put_attachment(element::Tree &tree, const VpnKey &vpn, const l2vpn::Attachment &attachment) {
  interfaces_.add(attachment.interface);
  l2vpn::put_attachment(tree, vpn, attachment);
}

void Builder::put_pseudowire(element::Tree &tree, const VpnKey &vpn, const Values &row) {
  const l2vpn::Neighbor neighbor{dotted(number(row[2])), number(row[3])};
  constexpr std::uint64_t kBackup = 1;
  row[4].bits == kBackup ? l2vpn::put_backup_neighbor(tree, vpn, neighbor) : l2vpn::put_neighbor(tree, vpn, neighbor);
}

void Builder::put_member(element::Tree &tree, const Values &row) {
  l2vpn::put_static_member(tree, {number(row[1]), interfaces_.name_of(static_cast<std::int32_t>(row[2].bits))});
}

void Builder::put_uplink(element::Tree &tree, const Values &row) {
  std::uint32_t vlan = 0;
  const std::string &text = row[2].text;
  std::from_chars(text.data(), text.data() + text.size(), vlan);
  l2vpn::put_uplink(tree, {row[0].text, vlan});
}

void Builder::put_range(const Steps &path, const Values &row) {
  const std::optional<VpnKey> vpn = vpn_of(path);
  const std::optional<std::string> interface = encapsulated_interface(path);
  if (!vpn || !interface) return;
  put_attachment(candidate_, *vpn, {.interface = *interface, .ranges = {{number(row[0]), number(row[1])}}});
}

// The transparent LAN service's enumeration has 2 for off.
void Builder::put_bridge_domain(const Steps &path, const Values &row) {
  const std::optional<VpnKey> vpn = vpn_of(path);
  if (!vpn) return;
  l2vpn::ensure_vpn(candidate_, *vpn);
  if (row[0].bits != 0) l2vpn::set_dot1q(candidate_, *vpn, number(row[0]));
  constexpr std::uint64_t kOff = 2;
  if (row.size() > 1 && row[1].type == recording::kEnumValue) {
    l2vpn::set_transparent_lan_service(candidate_, *vpn, row[1].bits != kOff);
  }
}

void Builder::put_leafs() {
  for (const Leaf &leaf : facts_.leafs) put_leaf(leaf);
}

void Builder::put_leaf(const Leaf &leaf) {
  if (leaf.path.empty()) return;
  const std::string &name = leaf.path.back().name;
  if (name == "vlanMgrStaticMemberEntry" && leaf.path.back().keys.size() == 3) {
    const std::vector<std::string> &keys = leaf.path.back().keys;
    const auto bits = [](const std::string &text) { return static_cast<std::uint64_t>(std::stoll(text)); };
    return put_member(candidate_, {{}, {recording::kInt32, bits(keys[1]), ""}, {recording::kInt32, bits(keys[2]), ""}});
  }
  const std::optional<VpnKey> vpn = vpn_of(leaf.path);
  if (!vpn) return put_operator_leaf(leaf.path);
  if (name == "int-vpls-bd-vlan" && leaf.value && leaf.value->bits != 0) {
    l2vpn::set_dot1q(candidate_, *vpn, number(*leaf.value));
  } else if (name == "int-vpls-bd-mtu" && leaf.value) {
    l2vpn::set_bridge_mtu(candidate_, *vpn, number(*leaf.value));
  } else if (name == "int-vpls-bd-tls" && leaf.value) {
    l2vpn::set_transparent_lan_service(candidate_, *vpn, leaf.value->bits != 2);
  } else if (name.ends_with("-encap-untagged")) {
    const std::optional<std::string> interface = encapsulated_interface(leaf.path);
    if (interface) put_attachment(candidate_, *vpn, {.interface = *interface, .untagged = true});
  } else {
    put_operator_leaf(leaf.path);
  }
}

void Builder::put_operator_leaf(const Steps &path) {
  const std::string &name = path.back().name;
  const std::optional<VpnKey> vpn = vpn_of(path);
  if (vpn && name == l2vpn::name::transparent_lan_service) {
    l2vpn::set_transparent_lan_service(candidate_, *vpn, true);
  }
  const auto *port = keys_of(path, l2vpn::name::service_port);
  if (port == nullptr) return;
  l2vpn::ServicePort match{static_cast<std::uint32_t>(std::stoul(port->at(0)))};
  if (name == l2vpn::name::any) match.any = true;
  if (name == l2vpn::name::vid) {
    match.vid = 1;
    made_up_.push_back("that service port " + port->at(0) + " matches VLAN 1");
  }
  l2vpn::put_service_port(candidate_, match);
}

}  // namespace reconstruction
