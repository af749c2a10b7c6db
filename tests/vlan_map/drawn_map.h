#ifndef TESTS_VLAN_MAP_DRAWN_MAP_H
#define TESTS_VLAN_MAP_DRAWN_MAP_H

#include <memory>
#include <string>
#include <vector>

#include "element/datastore/transaction.h"
#include "element/profile/profile.h"
#include "tests/element/print.h"
#include "vlan_map/map.h"

/// Paths of the entries that the tests write.
inline const std::string vpws = "/mpls/l2vpn-config/l2vpn/vpws-group{branches}/vpn{south}";
inline const std::string vpls = "/mpls/l2vpn-config/l2vpn/vpls-group{campus}/vpn{data}";
inline const std::string domain = vpls + "/bridge-domain";

/// The access interface of the VPWS or VPLS VPN on a port.
inline std::string on_vpws(const std::string &port) { return vpws + "/access-interface{" + port + "}"; }
inline std::string on_vpls(const std::string &port) { return domain + "/access-interface{" + port + "}"; }

/// An element with the ports ge-1 to ge-3.
const element::Profile &three_ports();

/// A commit from the lines of two configurations, as tree_of reads them.
std::unique_ptr<element::Transaction> commit(const Lines &running, const Lines &candidate);

/// A map without conflicts of such a commit.
vlan_map::Map map_of(const Lines &running, const Lines &candidate);

/// A sentence a claim, port by port.
Lines claims_in(const vlan_map::Map &map);

/// A finding with a party a line: its path, and " with " a detail's path where it has one. All parties are at odds.
report::Finding finding(const std::string &message, const Lines &parties);

#endif
