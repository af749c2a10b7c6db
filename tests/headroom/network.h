#ifndef TESTS_HEADROOM_NETWORK_H
#define TESTS_HEADROOM_NETWORK_H

#include <cstdint>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <vector>

#include "l2vpn/configuration.h"

namespace headroom_test {

using Json = nlohmann::ordered_json;

/// A configuration that a test writes, VPN by VPN. A VPN, port or neighbour that is named is added when it is not
/// there. References are valid until the next VPN or port is added.
class Network {
 public:
  /// The VPN of this name in the VPLS group "campus" or in the VPWS group "metro".
  l2vpn::Vpn &vpls(const std::string &name);
  l2vpn::Vpn &vpws(const std::string &name);

  /// Adds a neighbour to the last VPWS VPN, else to the last VPLS VPN, else to a new one.
  void add_neighbor_somewhere(int number);

  /// An access interface on the port that has ranges or can have some: of the VPLS VPN that has some there; of the VPLS
  /// VPN "tunnels" where it is the first and no VPWS VPN is there; else of the VPWS VPN "north".
  l2vpn::Attachment &port_with_ranges(const std::string &port);

  /// The VLAN manager's VLAN with this port as a member.
  void member(std::uint32_t vlan, const std::string &port);

  /// As a configuration file.
  std::string text() const;

 private:
  l2vpn::Vpn &vpn(const l2vpn::VpnKey &key);

  l2vpn::Configuration configuration_;
};

/// The port as an access interface of a VPN.
l2vpn::Attachment &port_of(l2vpn::Vpn &vpn, const std::string &port);

/// Adds `count` single VLANs from `first` on to an access interface, or as many ranges of two VLANs.
void add_vlans(l2vpn::Attachment &access_interface, std::uint32_t first, std::uint32_t count);
void add_ranges(l2vpn::Attachment &access_interface, std::uint32_t first, std::uint32_t count);

/// Adds a neighbour to a VPN; `number` is its pw-id and gives its address.
void add_neighbor(l2vpn::Vpn &vpn, int number);

/// The names of the test element's ports: "ge-1" to "ge-60", "service-port-1" to "service-port-9".
std::string ge(int number);
std::string service_port(int number);

/// An element with these ports and this card ({"vpn-max": 4}).
std::string element_with(const Json &card);

/// What the library says of a commit: nothing where it accepts.
using Message = std::optional<std::string>;

/// The message of the first of the points that rejects; of those of this name where it is not empty.
Message rejection(const Json &points, const std::string &point = "");

/// A commit in a folder, gone with the object.
class Commit {
 public:
  Commit(const Json &card, const Network &running, const Network &candidate);
  ~Commit();
  Commit(const Commit &) = delete;
  Commit &operator=(const Commit &) = delete;

  /// What `vpnval headroom` prints as JSON.
  Json headroom() const;

  /// What the validation points say of another candidate, each by itself, as `vpnval check --all` prints it.
  Json points(const Network &candidate) const;

 private:
  Json run(const std::string &command, const std::string &candidate) const;
  void write(const std::string &name, const std::string &text) const;

  std::filesystem::path directory_;
};

}  // namespace headroom_test

#endif
