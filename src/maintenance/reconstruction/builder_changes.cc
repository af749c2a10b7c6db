// Changes that the library was told of are taken back in the running configuration; and what a commit needs beyond what
// is known is made up.

#include "l2vpn/edit.h"
#include "maintenance/reconstruction/builder.h"

namespace reconstruction {

namespace {

using l2vpn::Family;
using l2vpn::VpnKey;

std::uint32_t number(const std::string &text) { return static_cast<std::uint32_t>(std::stoul(text)); }

constexpr const char *kMemberTable = "vlanMgrStaticMemberTable";
constexpr const char *kMembers = "vlanMgrStaticMemberEntry";

bool is_list(const std::string &name) {
  return name == l2vpn::name::access_interface || name == l2vpn::name::neighbor || name == l2vpn::name::backup_neighbor;
}

/// Any other number, as the value before a change.
std::uint32_t another(std::uint32_t number) { return number == 1 ? 2 : number - 1; }

}  // namespace

void Builder::put_node() {
  const Steps &node = facts_.node;
  if (node.empty()) return;
  const std::optional<VpnKey> vpn = vpn_of(node);
  for (const Family family : {Family::vpls, Family::vpws}) {
    const auto *group = keys_of(node, l2vpn::group_list(family));
    if (group != nullptr) put_group(candidate_, family, group->at(0));
  }
  if (!vpn) return;
  l2vpn::ensure_vpn(candidate_, *vpn);
  const auto *interface = keys_of(node, l2vpn::name::access_interface);
  const auto *neighbor = keys_of(node, l2vpn::name::neighbor);
  const auto *backup = keys_of(node, l2vpn::name::backup_neighbor);
  if (interface != nullptr) put_attachment(candidate_, *vpn, {.interface = interface->at(0)});
  if (neighbor != nullptr) l2vpn::put_neighbor(candidate_, *vpn, {neighbor->at(0), {}});
  if (backup != nullptr) l2vpn::put_backup_neighbor(candidate_, *vpn, {backup->at(0), {}});
}

void Builder::fill_counts() {
  for (const Count &count : facts_.counts) {
    if (count.node.ends_with("vplsConfigEntry")) fill_vpns(Family::vpls, count.entries);
    if (count.node.ends_with("vpwsConfigEntry")) fill_vpns(Family::vpws, count.entries);
    if (count.node.ends_with("pwEntry")) fill_pseudowires(count.entries);
    const std::optional<VpnKey> vpn = vpn_of(count.path);
    if (vpn && count.path.back().name == "int-vpls-ac") fill_attachments(*vpn, count.entries);
  }
}

void Builder::fill_vpns(Family family, std::int64_t count) {
  std::int64_t known = 0;
  for (const l2vpn::Vpn &vpn : l2vpn::read_configuration(candidate_).vpns) known += vpn.key.family == family ? 1 : 0;
  if (known >= count) return;
  made_up_.push_back(std::to_string(count - known) + " VPNs named unknown-N, of which the recording knows the number");
  for (std::int64_t i = 1; known < count; ++i, ++known) {
    l2vpn::ensure_vpn(candidate_, {family, "unknown", "unknown-" + std::to_string(i)});
  }
}

void Builder::fill_pseudowires(std::int64_t count) {
  std::int64_t known = 0;
  for (const l2vpn::Vpn &vpn : l2vpn::read_configuration(candidate_).vpns) {
    known += static_cast<std::int64_t>(vpn.neighbors.size() + vpn.backup_neighbors.size());
  }
  if (known >= count) return;
  made_up_.push_back(std::to_string(count - known) +
                     " neighbours of VPN unknown-pseudowires, of which the recording knows the number");
  for (std::int64_t i = 1; known < count; ++i, ++known) {
    const std::string address = "198.18." + std::to_string(i / 256 % 256) + '.' + std::to_string(i % 256);
    l2vpn::put_neighbor(candidate_, {Family::vpls, "unknown", "unknown-pseudowires-" + std::to_string(i / 65536)},
                        {address, static_cast<std::uint32_t>(4'000'000 + i)});
  }
}

void Builder::fill_attachments(const VpnKey &vpn, std::int64_t count) {
  const l2vpn::Configuration configuration = l2vpn::read_configuration(candidate_);
  const l2vpn::Vpn *known = configuration.find(vpn);
  const auto attached = known == nullptr ? 0 : static_cast<std::int64_t>(known->attachments.size());
  if (attached >= count) return;
  made_up_.push_back(std::to_string(count - attached) + " access interfaces of " + l2vpn::to_text(vpn) +
                     ", of which the recording knows the number");
  for (std::int64_t i = attached; i < count; ++i) {
    put_attachment(candidate_, vpn, {.interface = interfaces_.new_name()});
  }
}

void Builder::copy_to_running() { running_ = candidate_; }

void Builder::take_back_changes() {
  for (const Change &change : facts_.changes) take_back(change);
}

void Builder::take_back(const Change &change) {
  if (change.path.empty()) return;
  if (change.path.back().name == kMembers) return take_back_member(change);
  if (change.path.front().name == "internal") return take_back_derived(change);
  const std::optional<VpnKey> vpn = vpn_of(change.path);
  if (vpn) take_back_in_vpn(change, *vpn);
}

void Builder::take_back_member(const Change &change) {
  const std::vector<std::string> &keys = change.path.back().keys;
  if (keys.size() != 3) return;
  const l2vpn::StaticMember member{number(keys[1]), interfaces_.name_of(std::stoi(keys[2]))};
  if (change.operation == Operation::created) l2vpn::erase_static_member(running_, member);
  if (change.operation == Operation::deleted) l2vpn::put_static_member(running_, member);
}

// The only change of a derived table that the library asks for is that of a bridge domain's VLAN.
void Builder::take_back_derived(const Change &change) {
  const std::optional<VpnKey> vpn = vpn_of(change.path);
  if (!vpn || change.path.back().name != "int-vpls-bd-vlan" || !change.value) return;
  const auto vlan = static_cast<std::uint32_t>(change.value->bits);
  l2vpn::set_dot1q(running_, *vpn, another(vlan + 1));
}

void Builder::take_back_in_vpn(const Change &change, const VpnKey &vpn) {
  const std::string &name = change.path.back().name;
  const std::string key = change.path.back().keys.empty() ? "" : change.path.back().keys[0];
  if (!is_list(name)) return take_back_leaf(change, vpn);
  if (change.operation == Operation::created) {
    if (name == l2vpn::name::access_interface) l2vpn::erase_attachment(running_, vpn, key);
    if (name == l2vpn::name::neighbor) l2vpn::erase_neighbor(running_, vpn, key);
    if (name == l2vpn::name::backup_neighbor) l2vpn::erase_backup_neighbor(running_, vpn, key);
  } else if (change.operation == Operation::deleted) {
    if (name == l2vpn::name::access_interface) put_attachment(running_, vpn, {.interface = key});
  } else if (name == l2vpn::name::access_interface) {
    take_back_in_attachment(vpn, key);
  }
}

// What was changed of it is not known. Before, it is taken to have had nothing of what it has now.
void Builder::take_back_in_attachment(const VpnKey &vpn, const std::string &interface) {
  const l2vpn::Configuration configuration = l2vpn::read_configuration(candidate_);
  const l2vpn::Vpn *known = configuration.find(vpn);
  const l2vpn::Attachment *attachment = known == nullptr ? nullptr : known->find_attachment(interface);
  const bool is_bare =
      attachment == nullptr || (!attachment->dot1q && !attachment->untagged && attachment->ranges.empty());
  l2vpn::erase_attachment(running_, vpn, interface);
  put_attachment(running_, vpn, {.interface = interface, .untagged = is_bare});
  made_up_.push_back("what " + l2vpn::to_text(vpn) + " took of " + interface + " before");
}

void Builder::take_back_leaf(const Change &change, const VpnKey &vpn) {
  const std::string &name = change.path.back().name;
  const bool is_created = change.operation == Operation::created || change.operation == Operation::value_set;
  if (name == l2vpn::name::vpn && is_created) return l2vpn::erase_vpn(running_, vpn);
  if (name == l2vpn::name::transparent_lan_service) {
    return l2vpn::set_transparent_lan_service(running_, vpn, !is_created);
  }
  if (name == l2vpn::name::bridge_mtu) {
    return l2vpn::set_bridge_mtu(running_, vpn, is_created ? std::nullopt : std::optional<std::uint32_t>(1500));
  }
  if (name == l2vpn::name::dot1q && vpn.family == Family::vpls) {
    l2vpn::set_dot1q(running_, vpn, is_created ? std::nullopt : std::optional<std::uint32_t>(1));
    made_up_.push_back("that the bridge domain of " + l2vpn::to_text(vpn) + " had " +
                       (is_created ? "no VLAN before" : "VLAN 1 before"));
  }
}

// A point fires at a node that was created or changed.
void Builder::change_node() {
  const Steps &node = facts_.node;
  if (node.empty()) return;
  if (node.back().name == kMemberTable) return remove_member();
  const std::optional<VpnKey> vpn = vpn_of(node);
  if (!vpn) {
    for (const Family family : {Family::vpls, Family::vpws}) {
      const auto *group = keys_of(node, l2vpn::group_list(family));
      if (group != nullptr) running_.erase(l2vpn::group_path(family, group->at(0)));
    }
    return;
  }
  const auto *interface = keys_of(node, l2vpn::name::access_interface);
  const auto *neighbor = keys_of(node, l2vpn::name::neighbor);
  const auto *backup = keys_of(node, l2vpn::name::backup_neighbor);
  if (interface != nullptr) return l2vpn::erase_attachment(running_, *vpn, interface->at(0));
  if (neighbor != nullptr) return l2vpn::erase_neighbor(running_, *vpn, neighbor->at(0));
  if (backup != nullptr) return l2vpn::erase_backup_neighbor(running_, *vpn, backup->at(0));
  if (node.back().name == l2vpn::name::vpn) return l2vpn::erase_vpn(running_, *vpn);
  if (vpn->family != Family::vpls) return;
  constexpr std::uint32_t kBytes = 1500;
  l2vpn::set_bridge_mtu(running_, *vpn, kBytes);
  made_up_.push_back("that the bridge domain of " + l2vpn::to_text(*vpn) + " had another MTU before");
}

// The point fires where a member comes or goes. None of those that were read is new, so another one is made to go.
void Builder::remove_member() {
  const std::string port = interfaces_.new_name();
  interfaces_.add(port);
  l2vpn::put_static_member(running_, {l2vpn::kLastVlan, port});
  made_up_.push_back("that VLAN " + std::to_string(l2vpn::kLastVlan) + " had the member " + port + " before");
}

void Builder::complete_pseudowires() {
  constexpr std::uint32_t kMadeUp = 4'200'000;
  std::uint32_t next = kMadeUp;
  for (const l2vpn::Vpn &vpn : l2vpn::read_configuration(candidate_).vpns) {
    for (const l2vpn::Neighbor &neighbor : vpn.neighbors) {
      if (!neighbor.pw_id) l2vpn::put_neighbor(candidate_, vpn.key, {neighbor.address, next++});
    }
    for (const l2vpn::Neighbor &backup : vpn.backup_neighbors) {
      if (!backup.pw_id) l2vpn::put_backup_neighbor(candidate_, vpn.key, {backup.address, next++});
    }
  }
  if (next != kMadeUp) made_up_.push_back("pw-ids from " + std::to_string(kMadeUp) + " on, which were not read");
}

RebuiltCommit Builder::commit() const { return {{interfaces_.profile(facts_.card), running_, candidate_}, made_up_}; }

}  // namespace reconstruction
