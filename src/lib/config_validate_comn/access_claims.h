#ifndef CONFIG_VALIDATE_COMN_ACCESS_CLAIMS_H
#define CONFIG_VALIDATE_COMN_ACCESS_CLAIMS_H

#include <cstddef>
#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <unordered_map>

#include "config_validate_comn/access_records.h"

/// A set of VLANs, kept as disjoint ranges.
class vlan_claims_t {
 public:
  /// Adds a range. (0, 0) and a range whose minimum is above its maximum hold no VLAN.
  void add(const st_acc_dot1q_range_t &range);

  /// Whether the range holds a VLAN of the set. True may also be said of (0, 0) when VLAN 0 is in the set.
  bool meets(const st_acc_dot1q_range_t &range) const;

 private:
  std::map<std::uint32_t, std::uint32_t> ranges_;  ///< first -> last VLAN
};

/// What the records of one interface claim together.
struct port_claims_t {
  std::size_t records = 0;
  std::set<group_vpn_id_t> port_based;
  std::set<group_vpn_id_t> untagged;
  vlan_claims_t vlans;
};

/// In how many records a VPN has an encapsulation, and in how many it has none.
struct vpn_claims_t {
  std::size_t with_encapsulation = 0;
  std::size_t without_encapsulation = 0;
};

/// Sums of the snapshot's records, kept by its setters, that rule a question out without a walk over the records. In a
/// configuration that will be accepted nearly every question is ruled out; a "perhaps" is answered by the walk, because
/// the first record in order decides which VPN a message names.
///
/// Only what is long to walk is summed up: a port from its 17th VPN or 65th range on, the VPNs' encapsulations from the
/// 17th interface on. The first recording beyond builds the sum from the records. Each sum knows how many records
/// (interfaces) it was built from: when that is no longer how many there are, somebody filled the map without the
/// setters, and the sum is passed over by the queries and built again by the next recording. What it cannot see is an
/// edit inside a record that it has counted; records are edited through the setters.
class access_claims_t {
 public:
  /// The sum for an interface with these records; null when they are to be walked.
  const port_claims_t *of_port(const std::string &interface, const intf_vpns_t &records) const;

  /// Whether no interface has the VPN with an encap_cfg other than this. False also when the records are to be walked.
  bool agrees_on_encapsulation(const group_vpn_id_t &vpn, bool encap_cfg, const intf_map_t &intf_map) const;

 private:
  std::unordered_map<std::string, port_claims_t> ports_;
  std::map<group_vpn_id_t, vpn_claims_t> vpns_;
  std::size_t interfaces_ = 0;  ///< that vpns_ was built from
};

#endif
