#include "config_validate_comn/snapshot/snapshot_queries.h"

#include <algorithm>

#include "config_validate_comn/snapshot/record_kinds.h"

namespace {

bool share_a_vlan(const st_acc_dot1q_range_t &a, const st_acc_dot1q_range_t &b) {
  return std::max(a.vlan_min, b.vlan_min) <= std::min(a.vlan_max, b.vlan_max);
}

bool overlaps(const acc_intf_vpn_info_t &record, const st_acc_dot1q_range_t &range) {
  return std::any_of(record.dot1q_ranges.begin(), record.dot1q_ranges.end(),
                     [&range](const st_acc_dot1q_range_t &recorded) {
                       return !is_without_vlan(recorded) && share_a_vlan(recorded, range);
                     });
}

bool is_changed(const group_vpn_id_t &vpn, const std::string &interface, const st_val_acc_dot1q_vpn_t &snapshot) {
  return get_vpn_mop(vpn.group_name, vpn.vpn_name, interface, snapshot) != 0;
}

// Names the first VPN of the interface whose record qualifies, in key order; unless the sum over the interface's
// records says that none can.
template <typename Excludes, typename Qualifies>
bool find_vpn(const std::string &interface, const st_val_acc_dot1q_vpn_t &snapshot, group_vpn_id_t &other,
              Excludes excludes, Qualifies qualifies) {
  const auto [records, index] = snapshot.index.find_port(interface, snapshot.intf_map);
  if (records == nullptr) return false;
  if (index != nullptr && excludes(*index)) return false;

  for (const auto &[vpn, record] : *records) {
    if (!qualifies(vpn, record)) continue;
    other = vpn;
    return true;
  }
  return false;
}

}  // namespace

// The named key's type is worked out from its group name and not taken from the record's key.
bool has_vpn_dot1q_range_overlap(const std::string &interface, st_acc_dot1q_range_t range,
                                 const st_val_acc_dot1q_vpn_t &snapshot, group_vpn_id_t &other) {
  if (is_without_vlan(range)) return false;
  const bool found = find_vpn(
      interface, snapshot, other, [&](const port_index_t &port) { return !port.vlans.meets(range); },
      [&](const group_vpn_id_t & /*vpn*/, const acc_intf_vpn_info_t &record) { return overlaps(record, range); });
  if (found) other = make_group_vpn_id(other.group_name, other.vpn_name);
  return found;
}

bool has_interface_with_encapsulation(const intf_map_t &intf_map) {
  return std::any_of(intf_map.begin(), intf_map.end(), [](const auto &port) {
    return std::any_of(port.second.begin(), port.second.end(),
                       [](const auto &entry) { return entry.second.encap_cfg; });
  });
}

bool has_vlan_based_vpn_in_interface(const intf_map_t &intf_map, const std::string &interface) {
  const auto port = intf_map.find(interface);
  if (port == intf_map.end()) return false;
  return std::any_of(port->second.begin(), port->second.end(),
                     [](const auto &entry) { return !is_port_based(entry.second); });
}

// By value is how the rules know it; walks over many records ask is_port_based, which copies nothing.
// NOLINTNEXTLINE(performance-unnecessary-value-param)
bool is_interface_vpn_port_based(acc_intf_vpn_info_t record) { return is_port_based(record); }

bool has_modified_port_based_vpn_in_interface(const st_val_acc_dot1q_vpn_t &snapshot, const std::string &interface,
                                              group_vpn_id_t &other) {
  const auto is_changed_here = [&](const group_vpn_id_t &vpn) { return is_changed(vpn, interface, snapshot); };
  return find_vpn(
      interface, snapshot, other,
      [&](const port_index_t &port) {
        return std::none_of(port.port_based.begin(), port.port_based.end(),
                            [&](const auto *record) { return is_changed_here(record->first); });
      },
      [&](const group_vpn_id_t &vpn, const acc_intf_vpn_info_t &record) {
        return is_port_based(record) && is_changed_here(vpn);
      });
}

bool has_modified_port_based_vpn(const st_val_acc_dot1q_vpn_t &snapshot) {
  return std::any_of(snapshot.intf_map.begin(), snapshot.intf_map.end(), [&](const auto &port) {
    return std::any_of(port.second.begin(), port.second.end(), [&](const auto &entry) {
      return is_port_based(entry.second) && is_changed(entry.first, port.first, snapshot);
    });
  });
}

bool has_port_based_vpn_in_interface(const st_val_acc_dot1q_vpn_t &snapshot, const std::string &interface,
                                     group_vpn_id_t &other) {
  return find_vpn(
      interface, snapshot, other, [](const port_index_t &port) { return port.port_based.empty(); },
      [](const group_vpn_id_t & /*vpn*/, const acc_intf_vpn_info_t &record) { return is_port_based(record); });
}

bool has_encapsulation_untagged(const acc_intf_vpn_info_t &record) { return is_untagged(record); }

bool has_encapsulation_untagged_in_interface(const std::string &interface, const st_val_acc_dot1q_vpn_t &snapshot,
                                             group_vpn_id_t &other) {
  return find_vpn(
      interface, snapshot, other, [](const port_index_t &port) { return port.untagged.empty(); },
      [](const group_vpn_id_t & /*vpn*/, const acc_intf_vpn_info_t &record) { return is_untagged(record); });
}

bool is_interface_vpn_port_based_through_basic_info(std::uint32_t basic_vlan, bool untagged) {
  return basic_vlan == 0 && !untagged;
}
