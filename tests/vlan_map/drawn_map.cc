#include "tests/vlan_map/drawn_map.h"

#include "element/datastore/path.h"
#include "vlan_map/claims.h"
#include "vlan_map/labels.h"

const element::Profile &three_ports() {
  static const element::Profile profile({}, {{"ge-1", 1, 1001}, {"ge-2", 2, 1002}, {"ge-3", 3, 1003}});
  return profile;
}

std::unique_ptr<element::Transaction> commit(const Lines &running, const Lines &candidate) {
  return element::make_transaction(tree_of(running), tree_of(candidate), three_ports());
}

vlan_map::Map map_of(const Lines &running, const Lines &candidate) {
  vlan_map::Map map;
  map.title = "VLANs by port";
  map.ports = vlan_map::find_claims(*commit(running, candidate), three_ports());
  return map;
}

Lines claims_in(const vlan_map::Map &map) {
  Lines lines;
  for (const vlan_map::Port &port : map.ports) {
    for (const vlan_map::Claim &claim : port.claims) lines.push_back(sentence_of(map, port, claim));
  }
  return lines;
}

host::PointVerdict says(const std::string &message, host::Answer answer) {
  return {"vpn_access_valp", "/mpls", answer, message};
}

diagnosis::Finding finding(const host::PointVerdict &verdict, const Lines &parties) {
  const element::Tree nothing(test_schema());
  diagnosis::Finding made{verdict, false, {}, {}, false, {}, 0, true, {nothing, nothing}, {}, {}, {}};
  for (const std::string &line : parties) {
    const std::size_t blank = line.find(" with ");
    diagnosis::Party party;
    party.path = element::parse_path(test_schema(), line.substr(0, blank));
    party.interface = to_text(party.path.back().keys.front());
    if (blank != std::string::npos) {
      diagnosis::Detail detail;
      detail.path = element::parse_path(test_schema(), line.substr(blank + 6));
      party.details.push_back(detail);
    }
    made.parties.push_back(party);
  }
  return made;
}
