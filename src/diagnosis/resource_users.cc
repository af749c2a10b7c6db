#include "diagnosis/resource_users.h"

#include <numeric>

#include "diagnosis/restricted_commit.h"
#include "element/datastore/lookup.h"

namespace diagnosis {
namespace {

using l2vpn::PortClaim;

bool has_key(const MergedNode &node, const std::string &key) {
  const auto *text = std::get_if<std::string>(&node.node().keys.front());
  return text != nullptr ? *text == key : element::to_text(node.node().keys.front()) == key;
}

template <typename Visit>
void visit_towards(const l2vpn::Configuration &configuration, const std::string &address, Visit visit) {
  for (const l2vpn::Vpn &vpn : configuration.vpns) {
    for (const std::vector<l2vpn::Neighbor> *list : {&vpn.neighbors, &vpn.backup_neighbors}) {
      for (const l2vpn::Neighbor &neighbor : *list) {
        if (neighbor.address == address && neighbor.pw_id) visit(*neighbor.pw_id);
      }
    }
  }
}

}  // namespace

NumberSet ResourceUsers::entries_on(const std::string &port) const {
  NumberSet found;
  for (std::uint32_t entry = 0; entry < entries_.size(); ++entry) {
    const MergedNode &node = entries_.node(entry);
    const bool is_user =
        node.schema->name == l2vpn::name::access_interface || node.schema->name == l2vpn::name::interface;
    if (is_user && has_key(node, port)) found.push_back(entry);
  }
  return found;
}

NumberSet ResourceUsers::uplinks_in(std::uint32_t vlan) const {
  NumberSet found;
  std::set<std::string> names;
  for (std::uint32_t entry = 0; entry < entries_.size(); ++entry) {
    const MergedNode &node = entries_.node(entry);
    if (node.schema->name != "l3-interface") continue;
    const bool is_in_vlan =
        element::number_below(node.before, {"vlan"}) == vlan || element::number_below(node.after, {"vlan"}) == vlan;
    if (!is_in_vlan) continue;
    found.push_back(entry);
    names.insert(element::to_text(node.node().keys.front()));
  }
  for (std::uint32_t entry = 0; entry < entries_.size() && !names.empty(); ++entry) {
    const MergedNode &node = entries_.node(entry);
    const bool is_ldp = node.schema->name == l2vpn::name::interface && entries_[entry].parent == kNone;
    if (is_ldp && names.count(element::to_text(node.node().keys.front())) != 0) found.push_back(entry);
  }
  normalise(found);
  return found;
}

const std::vector<PortClaim> &ResourceUsers::claims_on(const std::string &port) {
  const auto [known, is_new] = claims_.try_emplace(port);
  if (!is_new) return known->second;
  for (PortClaim &claim : l2vpn::port_claims(candidate_of(entries_on(port)))) {
    if (claim.port == port) known->second.push_back(std::move(claim));
  }
  return known->second;
}

const PwIds &ResourceUsers::pw_ids_towards(const std::string &address) {
  const auto [known, is_new] = pw_ids_.try_emplace(address);
  if (!is_new) return known->second;
  PwIds &ids = known->second;
  const NumberSet set = entries_.closure(entries_towards(address));
  visit_towards(candidate_of(set), address, [&ids](std::uint32_t id) { ids.candidate.insert(id); });
  const l2vpn::Configuration running = l2vpn::read_configuration(running_tree({set, {}}, entries_, changes_));
  visit_towards(running, address, [&ids](std::uint32_t id) { ids.running.insert(id); });
  return ids;
}

const l2vpn::Vpn *ResourceUsers::vpn_around(std::uint32_t entry) {
  std::uint32_t vpn = entry;
  while (vpn != kNone && entries_.node(vpn).schema->name != l2vpn::name::vpn) vpn = entries_[vpn].parent;
  if (vpn == kNone) return nullptr;
  const auto [known, is_new] = vpns_.try_emplace(vpn);
  if (is_new) {
    NumberSet set(entries_[vpn].end - vpn);
    std::iota(set.begin(), set.end(), vpn);
    known->second = candidate_of(set);
  }
  return known->second.vpns.empty() ? nullptr : &known->second.vpns.front();
}

NumberSet ResourceUsers::entries_towards(const std::string &address) const {
  NumberSet found;
  for (std::uint32_t entry = 0; entry < entries_.size(); ++entry) {
    const MergedNode &node = entries_.node(entry);
    const bool is_neighbor =
        node.schema->name == l2vpn::name::neighbor || node.schema->name == l2vpn::name::backup_neighbor;
    if (is_neighbor && has_key(node, address)) found.push_back(entry);
  }
  return found;
}

l2vpn::Configuration ResourceUsers::candidate_of(const NumberSet &entries) const {
  return l2vpn::read_configuration(candidate_tree({entries_.closure(entries), {}}, entries_, changes_));
}

}  // namespace diagnosis
