#include "config_validate_comn/snapshot/access_index.h"

#include <iterator>
#include <utility>

#include "config_validate_comn/snapshot/record_kinds.h"

namespace {

using record_set_t = std::set<const intf_vpns_t::value_type *>;

void set_membership(record_set_t &records, const intf_vpns_t::value_type &record, bool is_member) {
  if (is_member) {
    records.insert(&record);
  } else {
    records.erase(&record);
  }
}

void set_kind(port_index_t &port, const intf_vpns_t::value_type &record) {
  set_membership(port.port_based, record, is_port_based(record.second));
  set_membership(port.untagged, record, is_untagged(record.second));
}

std::size_t &count_of(vpn_index_t &vpn, bool encap_cfg) {
  return encap_cfg ? vpn.with_encapsulation : vpn.without_encapsulation;
}

access_names_t names_of(const group_vpn_id_t &vpn) { return {vpn.group_name, vpn.vpn_name, {}}; }

access_names_t names_of(const mop_map_t::key_type &attachment) {
  const auto &[group, vpn, interface] = attachment;
  return {group, vpn, interface};
}

bool is_of_vpn(const intf_vpns_t::value_type *record, const std::string &group, const std::string &vpn) {
  return record != nullptr && record->first.vpn_name == vpn && record->first.group_name == group;
}

/// `last` is asked first: what is asked about is mostly the interface that was written last. Null when there is none.
template <typename Port, typename Ports>
Port *find_by_name(const std::string &interface, Port *last, Ports &ports) {
  if (last != nullptr && last->entry->first == interface) return last;
  const auto found = ports.find(interface);
  return found == ports.end() ? nullptr : &found->second;
}

void sum_up(port_index_t &port) {
  port.records = port.entry->second.size();
  for (const auto &record : port.entry->second) {
    set_kind(port, record);
    for (const st_acc_dot1q_range_t &range : record.second.dot1q_ranges) port.vlans.add(range);
  }
}

}  // namespace

void access_index_t::contents_t::swap(contents_t &other) noexcept {
  ports.swap(other.ports);
  vpns.swap(other.vpns);
  mops.swap(other.mops);
  std::swap(written, other.written);
  std::swap(last_port, other.last_port);
  std::swap(last_mop, other.last_mop);
}

access_index_t::port_t access_index_t::find_port(const std::string &interface, const intf_map_t &intf_map) const {
  if (contents_.ports.size() != intf_map.size()) {
    const auto entry = intf_map.find(interface);
    return {entry == intf_map.end() ? nullptr : &entry->second, nullptr};
  }
  const auto *port = find_by_name<const port_index_t>(interface, contents_.written.port, contents_.ports);
  if (port == nullptr) return {nullptr, nullptr};
  const intf_vpns_t &records = port->entry->second;
  return {&records, port->records == records.size() ? port : nullptr};
}

bool access_index_t::agrees_on_encapsulation(const std::string &group, const std::string &vpn, bool encap_cfg,
                                             const intf_map_t &intf_map) const {
  if (contents_.ports.size() != intf_map.size()) return false;
  const vpn_index_t *sums = contents_.written.vpn;
  if (!is_of_vpn(contents_.written.record, group, vpn)) {
    const auto found = contents_.vpns.find({group, vpn, {}});
    if (found == contents_.vpns.end()) return false;
    sums = &found->second;
  }
  return (encap_cfg ? sums->without_encapsulation : sums->with_encapsulation) == 0;
}

std::int32_t access_index_t::find_mop(const access_names_t &attachment, const mop_map_t &mop_map) const {
  if (contents_.mops.size() == mop_map.size()) {
    const auto found = contents_.mops.find(attachment);
    return found == contents_.mops.end() ? 0 : found->second->second;
  }
  const auto entry =
      mop_map.find({std::string(attachment.group), std::string(attachment.vpn), std::string(attachment.interface)});
  return entry == mop_map.end() ? 0 : entry->second;
}

void access_index_t::write(const std::string &group, const std::string &vpn, const std::string &interface,
                           const st_acc_dot1q_range_t *range, bool encap_cfg, intf_map_t &intf_map) {
  const written_t at = record_of(group, vpn, interface, intf_map);
  acc_intf_vpn_info_t &record = at.record->second;
  if (record.encap_cfg != encap_cfg) {
    --count_of(*at.vpn, record.encap_cfg);
    ++count_of(*at.vpn, encap_cfg);
    record.encap_cfg = encap_cfg;
  }
  if (range != nullptr && record.dot1q_ranges.insert(*range).second) at.port->vlans.add(*range);
  set_kind(*at.port, *at.record);
}

void access_index_t::write_mop(const std::string &group, const std::string &vpn, const std::string &interface,
                               std::int32_t mop, mop_map_t &mop_map) {
  if (contents_.mops.size() != mop_map.size()) rebuild_mops(mop_map);

  // The lists that are walked are sorted as the map is: an entry mostly comes right behind the last one.
  const auto hint = contents_.mops.empty() ? mop_map.end() : std::next(contents_.last_mop);
  contents_.last_mop = mop_map.try_emplace(hint, {group, vpn, interface}, mop);
  const bool is_new = mop_map.size() != contents_.mops.size();
  if (is_new) contents_.mops.emplace(names_of(contents_.last_mop->first), contents_.last_mop);
}

port_index_t &access_index_t::port_of(const std::string &interface, intf_map_t &intf_map) {
  if (contents_.ports.size() != intf_map.size()) rebuild(intf_map);
  if (auto *port = find_by_name(interface, contents_.written.port, contents_.ports)) {
    if (port->records == port->entry->second.size()) return *port;
    rebuild(intf_map);
    return contents_.ports.find(interface)->second;
  }
  // A VPN's interfaces come in the order of the map.
  const auto hint = contents_.ports.empty() ? intf_map.end() : std::next(contents_.last_port);
  contents_.last_port = intf_map.try_emplace(hint, interface);
  intf_map_t::value_type &entry = *contents_.last_port;
  return contents_.ports.try_emplace(entry.first, entry).first->second;
}

access_index_t::written_t access_index_t::record_of(const std::string &group, const std::string &vpn,
                                                    const std::string &interface, intf_map_t &intf_map) {
  port_index_t &port = port_of(interface, intf_map);
  written_t &written = contents_.written;
  const bool is_same_vpn = is_of_vpn(written.record, group, vpn);
  if (is_same_vpn && written.port == &port) return written;

  intf_vpns_t &records = port.entry->second;
  const auto hint = port.last == records.end() ? port.last : std::next(port.last);
  port.last = is_same_vpn ? records.try_emplace(hint, written.record->first)
                          : records.try_emplace(hint, make_group_vpn_id(group, vpn));
  vpn_index_t &sums = is_same_vpn ? *written.vpn : contents_.vpns[names_of(port.last->first)];
  if (records.size() != port.records) {
    port.records = records.size();
    ++count_of(sums, port.last->second.encap_cfg);
  }
  written = {&port, &*port.last, &sums};
  return written;
}

void access_index_t::rebuild(intf_map_t &intf_map) {
  contents_.ports.clear();
  contents_.vpns.clear();
  contents_.written = {};
  for (auto port = intf_map.begin(); port != intf_map.end(); ++port) {
    contents_.last_port = port;
    sum_up(contents_.ports.try_emplace(port->first, *port).first->second);
    for (const auto &[vpn, record] : port->second) ++count_of(contents_.vpns[names_of(vpn)], record.encap_cfg);
  }
}

void access_index_t::rebuild_mops(mop_map_t &mop_map) {
  contents_.mops.clear();
  for (auto entry = mop_map.begin(); entry != mop_map.end(); ++entry) {
    contents_.mops.emplace(names_of(entry->first), entry);
    contents_.last_mop = entry;
  }
}
