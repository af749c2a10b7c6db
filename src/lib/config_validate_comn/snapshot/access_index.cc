#include "config_validate_comn/snapshot/access_index.h"

#include "config_validate_comn/snapshot/record_kinds.h"

namespace {

constexpr std::size_t kShortWalkRecords = 16;
constexpr std::size_t kShortWalkRanges = 64;
constexpr std::size_t kShortWalkInterfaces = 16;
constexpr std::size_t kShortWalkAttachments = 64;

bool is_short_walk(const intf_vpns_t &records) {
  if (records.size() > kShortWalkRecords) return false;
  std::size_t ranges = 0;
  for (const auto &[vpn, record] : records) ranges += record.dot1q_ranges.size();
  return ranges <= kShortWalkRanges;
}

bool is_short_walk(const intf_map_t &intf_map) {
  if (intf_map.size() > kShortWalkInterfaces) return false;
  std::size_t attachments = 0;
  for (const auto &[interface, records] : intf_map) attachments += records.size();
  return attachments <= kShortWalkAttachments;
}

void set_membership(std::set<group_vpn_id_t> &vpns, const group_vpn_id_t &vpn, bool is_member) {
  if (is_member) {
    vpns.insert(vpn);
  } else {
    vpns.erase(vpn);
  }
}

void set_kind(port_index_t &port, const group_vpn_id_t &vpn, const acc_intf_vpn_info_t &record) {
  set_membership(port.port_based, vpn, is_port_based(record));
  set_membership(port.untagged, vpn, is_untagged(record));
}

port_index_t sum_of(const intf_vpns_t &records) {
  port_index_t port;
  port.records = records.size();
  for (const auto &[vpn, record] : records) {
    set_kind(port, vpn, record);
    for (const st_acc_dot1q_range_t &range : record.dot1q_ranges) port.vlans.add(range);
  }
  return port;
}

std::size_t &count_of(vpn_index_t &vpn, bool encap_cfg) {
  return encap_cfg ? vpn.with_encapsulation : vpn.without_encapsulation;
}

std::map<group_vpn_id_t, vpn_index_t> sum_of(const intf_map_t &intf_map) {
  std::map<group_vpn_id_t, vpn_index_t> vpns;
  for (const auto &[interface, records] : intf_map) {
    for (const auto &[vpn, record] : records) ++count_of(vpns[vpn], record.encap_cfg);
  }
  return vpns;
}

}  // namespace

const port_index_t *access_index_t::port_index(const std::string &interface, const intf_vpns_t &records) const {
  if (is_short_walk(records)) return nullptr;
  const auto port = ports_.find(interface);
  if (port == ports_.end() || port->second.records != records.size()) return nullptr;
  return &port->second;
}

bool access_index_t::agrees_on_encapsulation(const group_vpn_id_t &vpn, bool encap_cfg,
                                             const intf_map_t &intf_map) const {
  if (is_short_walk(intf_map) || interfaces_ != intf_map.size()) return false;
  const auto claims = vpns_.find(vpn);
  if (claims == vpns_.end()) return false;
  return (encap_cfg ? claims->second.without_encapsulation : claims->second.with_encapsulation) == 0;
}

void access_index_t::recorded(const index_record_t &recording, const intf_map_t &intf_map) {
  if (!is_short_walk(recording.records)) sum_up_port(recording);
  if (!is_short_walk(intf_map)) sum_up_vpns(recording, intf_map);
}

void access_index_t::sum_up_port(const index_record_t &recording) {
  port_index_t &port = ports_[recording.interface];
  const std::size_t expected = port.records + (recording.is_new_record ? 1 : 0);
  if (expected != recording.records.size()) {
    port = sum_of(recording.records);
    return;
  }
  port.records = expected;
  set_kind(port, recording.vpn, recording.record);
  if (recording.new_range != nullptr) port.vlans.add(*recording.new_range);
}

void access_index_t::sum_up_vpns(const index_record_t &recording, const intf_map_t &intf_map) {
  const std::size_t expected = interfaces_ + (recording.is_new_interface ? 1 : 0);
  interfaces_ = intf_map.size();
  if (expected != interfaces_) {
    vpns_ = sum_of(intf_map);
    return;
  }
  const bool encap_cfg = recording.record.encap_cfg;
  if (!recording.is_new_record && recording.had_encap_cfg == encap_cfg) return;
  vpn_index_t &vpn = vpns_[recording.vpn];
  if (!recording.is_new_record) --count_of(vpn, recording.had_encap_cfg);
  ++count_of(vpn, encap_cfg);
}
