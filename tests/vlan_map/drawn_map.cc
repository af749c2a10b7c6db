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

report::Finding finding(const std::string &message, const Lines &parties) {
  report::Finding made;
  made.message = message;
  made.is_minimal = true;
  made.conflicts.emplace_back();
  for (const std::string &line : parties) {
    const std::size_t blank = line.find(" with ");
    report::PartyReport party;
    party.node.path = line.substr(0, blank);
    party.interface = to_text(element::parse_path(test_schema(), party.node.path).back().keys.front());
    if (blank != std::string::npos) {
      party.details.emplace_back();
      party.details.back().path = line.substr(blank + 6);
    }
    made.conflicts[0].parties.push_back(made.parties.size());
    made.parties.push_back(std::move(party));
  }
  return made;
}
