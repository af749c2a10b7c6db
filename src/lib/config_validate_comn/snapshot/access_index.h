#ifndef CONFIG_VALIDATE_COMN_SNAPSHOT_ACCESS_INDEX_H
#define CONFIG_VALIDATE_COMN_SNAPSHOT_ACCESS_INDEX_H

#include <cstddef>
#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <string_view>
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

/// What the records of one interface claim together. Points into the snapshot's map of interfaces.
struct port_index_t {
  explicit port_index_t(intf_map_t::value_type &port) : entry(&port), last(port.second.end()) {}

  intf_map_t::value_type *entry;
  intf_vpns_t::iterator last;  ///< the record that was written last, or the end
  std::size_t records = 0;
  std::set<const intf_vpns_t::value_type *> port_based{};
  std::set<const intf_vpns_t::value_type *> untagged{};
  vlan_set_t vlans{};
};

/// In how many records a VPN has an encapsulation, and in how many it has none.
struct vpn_index_t {
  std::size_t with_encapsulation = 0;
  std::size_t without_encapsulation = 0;
};

/// The names of an attachment, or of a VPN: the interface is empty then. They stand in a key of one of the snapshot's
/// maps, or with the caller for a look-up.
struct access_names_t {
  std::string_view group;
  std::string_view vpn;
  std::string_view interface;
};

inline bool operator==(const access_names_t &a, const access_names_t &b) {
  return a.interface == b.interface && a.vpn == b.vpn && a.group == b.group;
}

struct access_names_hash_t {
  std::size_t operator()(const access_names_t &names) const {
    constexpr std::hash<std::string_view> hash;
    return (hash(names.interface) * 31 + hash(names.vpn)) * 31 + hash(names.group);
  }
};

/// Finds the entries of the snapshot's maps, and keeps sums of its records that rule a question out without a walk over
/// them. In a configuration that will be accepted nearly every question is ruled out. A "perhaps" is answered by the
/// walk, because the first record in order decides which VPN a message names, and that walk ends the commit.
///
/// The index points into the maps: entries may be added by hand, but none may be taken out and another put in its
/// place. It knows how many entries each map has. When that is no longer how many there are, somebody filled the map
/// without the setters; questions are then answered from the map itself, and the next recording builds the index again.
/// What goes unseen is what is written by hand inside a record, or inside an interface for the sums of VPNs. A copy
/// begins empty, for it would point into the original's maps. Rules neither copy nor move a snapshot; callers outside
/// may.
class access_index_t {
 public:
  access_index_t() = default;
  access_index_t(const access_index_t & /*other*/) {}
  access_index_t(access_index_t &&other) noexcept { contents_.swap(other.contents_); }
  access_index_t &operator=(access_index_t other) noexcept {
    contents_.swap(other.contents_);
    return *this;
  }
  ~access_index_t() = default;

  struct port_t {
    const intf_vpns_t *records;  ///< null when the snapshot does not have the interface
    const port_index_t *index;   ///< null when the records are to be walked
  };
  port_t find_port(const std::string &interface, const intf_map_t &intf_map) const;

  /// Whether it is certain that no record of the VPN has an encap_cfg other than this.
  bool agrees_on_encapsulation(const std::string &group, const std::string &vpn, bool encap_cfg,
                               const intf_map_t &intf_map) const;

  /// The recorded change operation of an attachment, 0 when none was recorded.
  std::int32_t find_mop(const access_names_t &attachment, const mop_map_t &mop_map) const;

  /// Writes one record of an attachment, which is made when it is missing: the range, unless null, and the flag.
  void write(const std::string &group, const std::string &vpn, const std::string &interface,
             const st_acc_dot1q_range_t *range, bool encap_cfg, intf_map_t &intf_map);

  /// Writes the change operation of an attachment that has none yet.
  void write_mop(const std::string &group, const std::string &vpn, const std::string &interface, std::int32_t mop,
                 mop_map_t &mop_map);

 private:
  /// What was written last, for an attachment is written several times in a row.
  struct written_t {
    port_index_t *port = nullptr;
    intf_vpns_t::value_type *record = nullptr;
    vpn_index_t *vpn = nullptr;
  };

  struct contents_t {
    std::unordered_map<std::string_view, port_index_t> ports;
    std::unordered_map<access_names_t, vpn_index_t, access_names_hash_t> vpns;
    std::unordered_map<access_names_t, mop_map_t::iterator, access_names_hash_t> mops;
    written_t written;
    intf_map_t::iterator last_port;  ///< made last, if there are any
    mop_map_t::iterator last_mop;    ///< made last, if there are any

    void swap(contents_t &other) noexcept;
  };

  port_index_t &port_of(const std::string &interface, intf_map_t &intf_map);
  written_t record_of(const std::string &group, const std::string &vpn, const std::string &interface,
                      intf_map_t &intf_map);
  void rebuild(intf_map_t &intf_map);
  void rebuild_mops(mop_map_t &mop_map);

  contents_t contents_;
};

#endif
