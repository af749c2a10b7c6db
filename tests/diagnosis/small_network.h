#ifndef TESTS_DIAGNOSIS_SMALL_NETWORK_H
#define TESTS_DIAGNOSIS_SMALL_NETWORK_H

#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <utility>

#include "tests/element/print.h"

namespace drawn {

enum class Family { vpls, vpws };

struct VpnName {
  Family family = Family::vpls;
  std::string group;
  std::string name;

  auto operator<=>(const VpnName &) const = default;

  std::string path() const;
};

/// The leafs of a bridge domain.
struct BridgeDomain {
  std::uint16_t dot1q = 0;  ///< 0: none
  std::uint32_t mtu = 0;    ///< 0: none
  bool is_tls = false;
};

struct Encapsulation {
  std::uint16_t dot1q = 0;  ///< VPWS; 0: none
  bool is_untagged = false;
  std::set<std::pair<std::uint16_t, std::uint16_t>> ranges;
};

struct Neighbor {
  std::string address;
  bool is_backup = false;

  auto operator<=>(const Neighbor &) const = default;
};

struct Vpn {
  BridgeDomain bridge_domain;
  std::map<std::string, Encapsulation> attachments;  ///< by port
  std::map<Neighbor, std::uint32_t> pw_ids;
};

enum class VlanAction { none, any, vid };

/// What an operator writes, in a form that is easy to change.
struct Network {
  std::map<VpnName, Vpn> vpns;
  std::set<std::pair<std::uint16_t, std::string>> members;   ///< VLAN and port
  std::map<std::string, std::uint16_t> uplinks;              ///< layer-3 interface and its VLAN
  std::set<std::pair<std::uint32_t, std::string>> snooping;  ///< instance and port
  std::map<std::uint32_t, VlanAction> service_ports;

  /// As lines of tree_of.
  Lines lines() const;
};

}  // namespace drawn

#endif
