#include "tests/property/naive_access.h"

#include <algorithm>
#include <functional>
#include <iterator>
#include <vector>

namespace naive {

namespace {

std::vector<std::uint32_t> vlan_ids(const st_acc_dot1q_range_t &range) {
  std::vector<std::uint32_t> ids;
  for (std::uint32_t id = range.vlan_min; id <= range.vlan_max; ++id) ids.push_back(id);
  return ids;
}

bool is_zero(const st_acc_dot1q_range_t &range) { return range.vlan_min == 0 && range.vlan_max == 0; }

bool overlaps(const acc_intf_vpn_info_t &record, const st_acc_dot1q_range_t &range) {
  for (const st_acc_dot1q_range_t &recorded : record.dot1q_ranges) {
    if (!is_zero(recorded) && share_a_vlan(recorded, range)) return true;
  }
  return false;
}

bool is_modified(const group_vpn_id_t &vpn, const std::string &interface, const st_val_acc_dot1q_vpn_t &snapshot) {
  const auto entry = snapshot.mop_map.find({vpn.group_name, vpn.vpn_name, interface});
  return entry != snapshot.mop_map.end() && entry->second != 0;
}

using wanted_t = std::function<bool(const group_vpn_id_t &vpn, const acc_intf_vpn_info_t &record)>;

answer_t first_vpn(const std::string &interface, const st_val_acc_dot1q_vpn_t &snapshot, const wanted_t &is_wanted) {
  const auto port = snapshot.intf_map.find(interface);
  if (port == snapshot.intf_map.end()) return {};
  for (const auto &[vpn, record] : port->second) {
    if (is_wanted(vpn, record)) return vpn;
  }
  return {};
}

}  // namespace

bool share_a_vlan(const st_acc_dot1q_range_t &a, const st_acc_dot1q_range_t &b) {
  const std::vector<std::uint32_t> ids_a = vlan_ids(a);
  const std::vector<std::uint32_t> ids_b = vlan_ids(b);
  std::vector<std::uint32_t> both;
  std::set_intersection(ids_a.begin(), ids_a.end(), ids_b.begin(), ids_b.end(), std::back_inserter(both));
  return !both.empty();
}

bool is_port_based(const acc_intf_vpn_info_t &record) {
  if (record.encap_cfg || record.dot1q_ranges.empty()) return false;
  for (const st_acc_dot1q_range_t &range : record.dot1q_ranges) {
    if (range.vlan_min != 0 && range.vlan_max != 0) return false;
  }
  return true;
}

bool is_untagged(const acc_intf_vpn_info_t &record) {
  return record.encap_cfg && std::any_of(record.dot1q_ranges.begin(), record.dot1q_ranges.end(), is_zero);
}

answer_t overlapping_vpn(const std::string &interface, const st_acc_dot1q_range_t &range,
                         const st_val_acc_dot1q_vpn_t &snapshot) {
  if (is_zero(range)) return {};
  return first_vpn(interface, snapshot, [&](const group_vpn_id_t & /*vpn*/, const acc_intf_vpn_info_t &record) {
    return overlaps(record, range);
  });
}

answer_t port_based_vpn(const std::string &interface, const st_val_acc_dot1q_vpn_t &snapshot) {
  return first_vpn(interface, snapshot, [](const group_vpn_id_t & /*vpn*/, const acc_intf_vpn_info_t &record) {
    return is_port_based(record);
  });
}

answer_t modified_port_based_vpn(const std::string &interface, const st_val_acc_dot1q_vpn_t &snapshot) {
  return first_vpn(interface, snapshot, [&](const group_vpn_id_t &vpn, const acc_intf_vpn_info_t &record) {
    return is_port_based(record) && is_modified(vpn, interface, snapshot);
  });
}

answer_t untagged_vpn(const std::string &interface, const st_val_acc_dot1q_vpn_t &snapshot) {
  return first_vpn(interface, snapshot, [](const group_vpn_id_t & /*vpn*/, const acc_intf_vpn_info_t &record) {
    return is_untagged(record);
  });
}

bool has_vlan_based_vpn(const std::string &interface, const st_val_acc_dot1q_vpn_t &snapshot) {
  return first_vpn(
             interface, snapshot,
             [](const group_vpn_id_t & /*vpn*/, const acc_intf_vpn_info_t &record) { return !is_port_based(record); })
      .has_value();
}

bool has_encapsulation(const st_val_acc_dot1q_vpn_t &snapshot) {
  for (const auto &[interface, records] : snapshot.intf_map) {
    for (const auto &[vpn, record] : records) {
      if (record.encap_cfg) return true;
    }
  }
  return false;
}

bool has_modified_port_based_vpn(const st_val_acc_dot1q_vpn_t &snapshot) {
  for (const auto &[interface, records] : snapshot.intf_map) {
    if (modified_port_based_vpn(interface, snapshot)) return true;
  }
  return false;
}

bool disagrees_on_encapsulation(const group_vpn_id_t &vpn, bool encap_cfg, const st_val_acc_dot1q_vpn_t &snapshot) {
  for (const auto &[interface, records] : snapshot.intf_map) {
    const auto entry = records.find(vpn);
    if (entry != records.end() && entry->second.encap_cfg != encap_cfg) return true;
  }
  return false;
}

}  // namespace naive
