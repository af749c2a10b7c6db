#ifndef TESTS_HEADROOM_NETWORK_H
#define TESTS_HEADROOM_NETWORK_H

#include <filesystem>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <vector>

namespace headroom_test {

using Json = nlohmann::ordered_json;

/// A configuration that a test writes, VPN by VPN. A VPN, port or neighbour that is named is added when it is not
/// there.
class Network {
 public:
  /// The VPN of this name in the VPLS group "campus" or in the VPWS group "metro".
  Json &vpls(const std::string &name);
  Json &vpws(const std::string &name);

  /// Adds a neighbour to a VPN that is there, of whichever family; to a new one where there is none.
  void add_neighbor_somewhere(int number);

  /// An access interface on the port that has ranges or can have some: of the VPN that has some there, of a VPWS VPN,
  /// of the VPLS VPN "tunnels"; of a new VPWS VPN where there is none of them.
  Json &port_with_ranges(const std::string &port);

  /// The VLAN manager's VLAN with this port as a member.
  void member(int vlan, const std::string &port);

  std::string text() const;

 private:
  Json vpls_vpns_ = Json::array();
  Json vpws_vpns_ = Json::array();
  Json vlans_ = Json::array();
};

/// The VPN's bridge domain.
Json &bridge_domain(Json &vpls);

/// The port as an access interface of a VPLS or VPWS VPN.
Json &vpls_port(Json &vpls, const std::string &port);
Json &vpws_port(Json &vpws, const std::string &port);

/// Adds `count` single VLANs from `first` on to an access interface, or as many ranges of two VLANs.
void add_vlans(Json &access_interface, int first, int count);
void add_ranges(Json &access_interface, int first, int count);

/// Adds a neighbour to a VPLS or VPWS VPN; `number` is its pw-id and gives its address.
void add_neighbor(Json &vpls, int number);
void add_vpws_neighbor(Json &vpws, int number);

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
