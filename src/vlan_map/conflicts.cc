#include "vlan_map/conflicts.h"

#include <algorithm>
#include <set>
#include <string>
#include <unordered_map>
#include <utility>

namespace vlan_map {
namespace {

using report::Finding;
using report::PartyReport;
using Places = std::vector<ClaimPlace>;

std::pair<std::size_t, std::size_t> key_of(const ClaimPlace &place) { return {place.port, place.claim}; }

void put_in_order(Places &places) {
  std::sort(places.begin(), places.end(), [](const auto &a, const auto &b) { return key_of(a) < key_of(b); });
  const auto is_twin = [](const auto &a, const auto &b) { return key_of(a) == key_of(b); };
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

  Conflict conflict_of(const Finding &finding) const {
    std::set<std::size_t> ports = ports_named_in(finding);
    Conflict conflict;
    conflict.finding = finding;
    conflict.by_party = at_odds(finding, claims_of_parties(finding, ports));
    for (const Places &places : conflict.by_party) {
      conflict.claims.insert(conflict.claims.end(), places.begin(), places.end());
    }
    put_in_order(conflict.claims);
    for (const ClaimPlace &place : conflict.claims) ports.insert(place.port);
    conflict.ports.assign(ports.begin(), ports.end());
    conflict.overlaps = overlaps_of(conflict.claims);
    return conflict;
  }

 private:
  const Claim &at(const ClaimPlace &place) const { return ports_[place.port].claims[place.claim]; }

  std::set<std::size_t> ports_named_in(const Finding &finding) const {
    std::set<std::size_t> ports;
    for (const PartyReport &party : finding.parties) {
      const auto port = port_indexes_.find(party.interface);
      if (port != port_indexes_.end()) ports.insert(port->second);
    }
    return ports;
  }

  /// An uplink is on many ports; where the message is about one, the others are no part of it.
  bool is_elsewhere(const ClaimPlace &place, const std::set<std::size_t> &ports) const {
    return at(place).claimant == Claimant::uplink && !ports.empty() && ports.count(place.port) == 0;
  }

  std::vector<Places> claims_of_parties(const Finding &finding, const std::set<std::size_t> &ports) const {
    std::set<std::string> sources;
    for (const PartyReport &party : finding.parties) {
      for (const report::NodeReport &detail : party.details) sources.insert(detail.path);
    }
    std::vector<Places> claims;
    for (const PartyReport &party : finding.parties) {
      claims.push_back(claims_of(party, sources));
      std::erase_if(claims.back(), [&](const ClaimPlace &place) { return is_elsewhere(place, ports); });
    }
    return claims;
  }

  /// The claims that the party's entry makes: those from the leafs and ranges that matter, all where none is told.
  Places claims_of(const PartyReport &party, const std::set<std::string> &sources) const {
    const auto entry = by_path_.find(party.node.path);
    if (entry == by_path_.end()) return {};
    Places all;
    Places told;
    for (const ClaimPlace &place : entry->second) {
      const Claim &claim = at(place);
      if (claim.status == ChangeStatus::removed && party.node.status != report::ChangeStatus::removed) continue;
      all.push_back(place);
      if (sources.count(claim.source) != 0) told.push_back(place);
    }
    return told.empty() ? all : told;
  }

  /// Of each party the claims that are at odds in any of the finding's conflicts.
  std::vector<Places> at_odds(const Finding &finding, std::vector<Places> claims) const {
    if (finding.enough != 0 || finding.conflicts.empty()) return claims;
    std::vector<Places> kept(claims.size());
    for (const report::ConflictReport &conflict : finding.conflicts) {
      for (const std::size_t party : conflict.parties) {
        for (const ClaimPlace &place : claims[party]) {
          if (meets_another(place, party, conflict.parties, claims)) kept[party].push_back(place);
        }
      }
    }
    for (std::size_t party = 0; party < claims.size(); ++party) {
      if (kept[party].empty()) kept[party] = std::move(claims[party]);
      put_in_order(kept[party]);
    }
    return kept;
  }

  /// Whether a claim meets one of another party; where there is one party alone, another one of its own.
  bool meets_another(const ClaimPlace &place, std::size_t party, const std::vector<std::size_t> &parties,
                     const std::vector<Places> &claims) const {
    const auto meets = [&](const ClaimPlace &other) {
      return key_of(other) != key_of(place) && other.port == place.port &&
             l2vpn::overlap(at(place).vlans, at(other).vlans).has_value();
    };
    return std::any_of(parties.begin(), parties.end(), [&](std::size_t other) {
      const bool is_asked = other != party || parties.size() == 1;
      return is_asked && std::any_of(claims[other].begin(), claims[other].end(), meets);
    });
  }

  /// The VLANs that all claims of the conflict on a port share.
  std::vector<Overlap> overlaps_of(const Places &places) const {
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
  std::unordered_map<std::string, Places> by_path_;
};

void mark(std::vector<Port> &ports, const Conflict &conflict, std::size_t index) {
  for (const ClaimPlace &place : conflict.claims) ports[place.port].claims[place.claim].conflicts.push_back(index);
  for (const std::size_t port : conflict.ports) ports[port].conflicts.push_back(index);
}

}  // namespace

std::vector<Conflict> find_conflicts(const std::vector<Finding> &findings, std::vector<Port> &ports) {
  std::vector<Conflict> conflicts;
  const Finder finder(ports);
  for (const Finding &finding : findings) {
    conflicts.push_back(finder.conflict_of(finding));
    mark(ports, conflicts.back(), conflicts.size() - 1);
  }
  return conflicts;
}

}  // namespace vlan_map
