#include "vlan_map/conflicts.h"

#include <algorithm>
#include <set>
#include <string>
#include <unordered_map>

#include "diagnosis/messages.h"
#include "element/datastore/path.h"

namespace vlan_map {
namespace {

using diagnosis::Finding;
using diagnosis::Party;
using host::PointVerdict;

bool is_same(const PointVerdict &a, const PointVerdict &b) { return a.point == b.point && a.text == b.text; }

bool is_in(const std::vector<PointVerdict> &points, const PointVerdict &wanted) {
  return std::any_of(points.begin(), points.end(),
                     [&wanted](const PointVerdict &point) { return is_same(point, wanted); });
}

/// The leafs and VLAN ranges without which the message would not come.
std::set<std::string> sources_of(const Finding &fault) {
  std::set<std::string> sources;
  for (const Party &party : fault.parties) {
    for (const diagnosis::Detail &detail : party.details) sources.insert(element::to_text(detail.path));
  }
  return sources;
}

void put_in_order(std::vector<ClaimPlace> &places) {
  const auto key = [](const ClaimPlace &place) { return std::pair(place.port, place.claim); };
  std::sort(places.begin(), places.end(), [&key](const auto &a, const auto &b) { return key(a) < key(b); });
  const auto is_twin = [&key](const auto &a, const auto &b) { return key(a) == key(b); };
  places.erase(std::unique(places.begin(), places.end(), is_twin), places.end());
}

class Finder {
 public:
  explicit Finder(const std::vector<Port> &ports) : ports_(ports) {
    for (std::size_t port = 0; port < ports.size(); ++port) {
      port_indexes_.emplace(ports[port].name, port);
      for (std::size_t claim = 0; claim < ports[port].claims.size(); ++claim) {
        by_path_[ports[port].claims[claim].path].push_back({port, claim});
      }
    }
  }

  Conflict conflict_of(const Finding &fault) const {
    std::set<std::size_t> ports = ports_named_in(fault);
    const std::set<std::string> sources = sources_of(fault);
    Conflict conflict;
    conflict.complete = fault.is_minimal;
    for (const Party &party : fault.parties) {
      for (const ClaimPlace &place : claims_of(party, sources)) {
        if (!is_elsewhere(place, ports)) conflict.claims.push_back(place);
      }
    }
    put_in_order(conflict.claims);
    for (const ClaimPlace &place : conflict.claims) ports.insert(place.port);
    conflict.ports.assign(ports.begin(), ports.end());
    conflict.overlaps = overlaps_of(conflict.claims);
    return conflict;
  }

 private:
  const Claim &at(const ClaimPlace &place) const { return ports_[place.port].claims[place.claim]; }

  std::set<std::size_t> ports_named_in(const Finding &fault) const {
    std::set<std::size_t> ports;
    for (const Party &party : fault.parties) {
      const auto port = port_indexes_.find(party.interface);
      if (port != port_indexes_.end()) ports.insert(port->second);
    }
    return ports;
  }

  /// An uplink is on many ports; where the message is about one, the others are no part of it.
  bool is_elsewhere(const ClaimPlace &place, const std::set<std::size_t> &ports) const {
    return at(place).claimant == Claimant::uplink && !ports.empty() && ports.count(place.port) == 0;
  }

  /// The claims that the party's entry makes: those from the leafs and ranges that matter, all where none is told.
  std::vector<ClaimPlace> claims_of(const Party &party, const std::set<std::string> &sources) const {
    const auto entry = by_path_.find(element::to_text(party.path));
    if (entry == by_path_.end()) return {};
    std::vector<ClaimPlace> all;
    std::vector<ClaimPlace> told;
    for (const ClaimPlace &place : entry->second) {
      const Claim &claim = at(place);
      if (claim.status == ChangeStatus::removed && party.status != ChangeStatus::removed) continue;
      all.push_back(place);
      if (sources.count(claim.source) != 0) told.push_back(place);
    }
    return told.empty() ? all : told;
  }

  /// The VLANs that all claims of the conflict on a port share.
  std::vector<Overlap> overlaps_of(const std::vector<ClaimPlace> &places) const {
    std::vector<Overlap> overlaps;
    for (const ClaimPlace &place : places) {
      const VlanRange &vlans = at(place).vlans;
      if (overlaps.empty() || overlaps.back().port != place.port) {
        overlaps.push_back({place.port, vlans});
        continue;
      }
      VlanRange &shared = overlaps.back().vlans;
      shared = {std::max(shared.first, vlans.first), std::min(shared.last, vlans.last)};
    }
    std::erase_if(overlaps, [](const Overlap &overlap) { return overlap.vlans.first > overlap.vlans.last; });
    return overlaps;
  }

  const std::vector<Port> &ports_;
  std::unordered_map<std::string, std::size_t> port_indexes_;
  std::unordered_map<std::string, std::vector<ClaimPlace>> by_path_;
};

void mark(std::vector<Port> &ports, const Conflict &conflict, std::size_t index) {
  for (const ClaimPlace &place : conflict.claims) ports[place.port].claims[place.claim].conflicts.push_back(index);
  for (const std::size_t port : conflict.ports) ports[port].conflicts.push_back(index);
}

}  // namespace

std::vector<Conflict> find_conflicts(const host::Verdict &verdict, const diagnosis::Diagnosis &diagnosis,
                                     std::vector<Port> &ports) {
  std::vector<Conflict> conflicts;
  const auto add = [&](Conflict conflict, const PointVerdict &point, const std::string &rule) {
    conflict.message = point.text;
    conflict.rule = rule;
    conflict.is_warning = point.answer == host::Answer::warned;
    conflict.from_device = is_in(verdict.points, point);
    mark(ports, conflict, conflicts.size());
    conflicts.push_back(std::move(conflict));
  };

  const Finder finder(ports);
  std::vector<PointVerdict> explained;
  for (const Finding &fault : diagnosis.findings) {
    add(finder.conflict_of(fault), fault.verdict, fault.rule);
    explained.push_back(fault.verdict);
  }
  for (const diagnosis::Message &said : diagnosis::device_messages(verdict)) {
    if (!is_in(explained, said.verdict)) add({}, said.verdict, said.rule_id());
  }
  return conflicts;
}

}  // namespace vlan_map
