#ifndef HEADROOM_CONFIGURED_VPNS_H
#define HEADROOM_CONFIGURED_VPNS_H

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "element/datastore/tree.h"

namespace headroom {

enum class Family { vpls, vpws };

/// A VPN of a configuration; it need not be there yet.
struct Vpn {
  Family family = Family::vpls;
  std::string group;
  std::string name;
  const element::Node *entry = nullptr;  ///< null for one that is to be added
};

/// The family's VPNs in key order. Valid as long as the tree is.
std::vector<Vpn> configured_vpns(const element::Tree &configuration, Family family);

/// "vpls-group campus vpn data", as messages name it.
std::string shown(const Vpn &vpn);

/// The VPN in the configuration, added when it is not there.
element::Node &put_vpn(element::Tree &configuration, const Vpn &vpn);

/// The VPN's access interfaces; none for a VPN that is to be added.
const element::Nodes &access_interfaces(const Vpn &vpn);

/// The access interface of this name, or null.
const element::Node *find_access_interface(const Vpn &vpn, const std::string &interface);

/// The VPN's access interface of this name, added when it is not there.
element::Node &put_access_interface(element::Tree &configuration, const Vpn &vpn, const std::string &interface);

/// Leaves the VPN without access interfaces.
void drop_access_interfaces(element::Tree &configuration, const Vpn &vpn);

/// Gives the access interface one more VLAN range of selective encapsulation; (v, v) is a VLAN.
void add_range(element::Node &access_interface, std::uint16_t first, std::uint16_t last);

/// The access interface's VLAN ranges of selective encapsulation.
const element::Nodes &ranges_of(const element::Node &access_interface);

}  // namespace headroom

#endif
