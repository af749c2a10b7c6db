#ifndef ELEMENT_PROJECTION_KEPT_VPNS_H
#define ELEMENT_PROJECTION_KEPT_VPNS_H

#include <array>
#include <unordered_map>

#include "element/projection/projection_tables.h"

namespace element {

/// The derived entries of one VPN: its entry below its group, and one row for each table of its family.
struct VpnRows {
  Nodes below_group;
  std::array<Nodes, std::tuple_size_v<decltype(VpnFamily::tables)>> tables;
};

/// Derived entries by the VPN's entry in the configuration. The entries are kept alive, so that none of their addresses
/// ever stands for another entry.
class KeptVpns {
 public:
  /// What was derived for this entry of an operator's tree, or null.
  const VpnRows *find(const Node &vpn) const {
    const auto found = rows_.find(&vpn);
    return found == rows_.end() ? nullptr : &found->second;
  }

  /// `vpns` is the list in which the entry stands at `place`.
  void add(const Nodes &vpns, std::size_t place, VpnRows rows) {
    entries_.push_back_shared(vpns, place);
    rows_.emplace(&vpns[place], std::move(rows));
  }

 private:
  Nodes entries_;
  std::unordered_map<const Node *, VpnRows> rows_;
};

}  // namespace element

#endif
