#ifndef CONFIG_VALIDATE_COMN_SNAPSHOT_ACCESS_INDEX_H
#define CONFIG_VALIDATE_COMN_SNAPSHOT_ACCESS_INDEX_H

#include <cstddef>
#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <unordered_map>

#include "config_validate_comn/snapshot/access_records.h"

/// A set of VLANs, kept as disjoint ranges.
class vlan_set_t {
 public:
  /// Adds a range. (0, 0) holds no VLAN, nor does a range whose minimum is above its maximum.
  void add(st_acc_dot1q_range_t range);

  /// Whether a VLAN of the range is in the set; for ranges whose minimum is not above their maximum.
  bool meets(const st_acc_dot1q_range_t &range) const;

 private:
  std::map<std::uint32_t, std::uint32_t> ranges_;  ///< first -> last VLAN
};

/// What the records of one interface claim together.
struct port_index_t {
  std::size_t records = 0;
  std::set<group_vpn_id_t> port_based;
  std::set<group_vpn_id_t> untagged;
  vlan_set_t vlans;
};

/// In how many records a VPN has an encapsulation, and in how many it has none.
struct vpn_index_t {
  std::size_t with_encapsulation = 0;
  std::size_t without_encapsulation = 0;
};

/// What a setter has just written into the snapshot's map of interfaces.
struct index_record_t {
  const std::string &interface;
  const intf_vpns_t &records;  ///< of the interface
  const group_vpn_id_t &vpn;
  const acc_intf_vpn_info_t &record;  ///< of the VPN on the interface
  bool is_new_interface;
  bool is_new_record;
  bool had_encap_cfg;                     ///< of the record, before
  const st_acc_dot1q_range_t *new_range;  ///< null when no range came into the record
};

/// Sums of the snapshot's records, kept by its setters, that rule a question out without a walk over the records. In a
/// configuration that will be accepted nearly every question is ruled out. A "perhaps" is answered by the walk, because
/// the first record in order decides which VPN a message names, and that walk ends the commit.
///
/// Only what is long to walk is summed up: a port from its 17th VPN or 65th range on, the VPNs' encapsulations from the
/// 17th interface or 65th attachment on. The first recording beyond builds the sum from the records. A port's sum knows
/// of how many records it is, the VPNs' sum of how many interfaces: when that is no longer how many there are, somebody
/// filled the map without the setters; the queries then pass the sum over, and the next recording builds it again. What
/// goes unseen is what is written by hand inside a record, or for the VPNs' sum inside an interface, that has been
/// counted; records are written through the setters.
class access_index_t {
 public:
  /// The sum for an interface with these records; null when they are to be walked.
  const port_index_t *port_index(const std::string &interface, const intf_vpns_t &records) const;

  /// Whether it is certain that no record of the VPN has an encap_cfg other than this.
  bool agrees_on_encapsulation(const group_vpn_id_t &vpn, bool encap_cfg, const intf_map_t &intf_map) const;

  /// Brings the sums up to what the map holds after the recording.
  void recorded(const index_record_t &recording, const intf_map_t &intf_map);

 private:
  void sum_up_port(const index_record_t &recording);
  void sum_up_vpns(const index_record_t &recording, const intf_map_t &intf_map);

  std::unordered_map<std::string, port_index_t> ports_;
  std::map<group_vpn_id_t, vpn_index_t> vpns_;
  std::size_t interfaces_ = 0;  ///< that vpns_ counts
};

#endif
