#ifndef ELEMENT_PROJECTION_KEPT_VPNS_H
#define ELEMENT_PROJECTION_KEPT_VPNS_H

#include <array>
#include <unordered_map>

#include "element/projection/projection_tables.h"

namespace element {

/// The derived entries of one VPN: its entry in the table of groups, and its entries in each table of its family.
struct VpnRows {
  Nodes below_group;
  std::array<Nodes, std::tuple_size_v<decltype(VpnFamily::tables)>> tables;
};

/// A cache of derived entries. The key is the address of a VPN's entry in the configuration; the cache owns a share of
/// that entry, so its address is not reused while the cache lives.
class KeptVpns {
 public:
  /// The entries derived for this VPN's entry of an operator's tree, or null if they are not cached.
  const VpnRows *find(const Node &vpn) const {
    const auto found = rows_.find(&vpn);
    return found == rows_.end() ? nullptr : &found->second;
  }

  /// Caches the derived entries of the VPN whose entry is `vpns[place]`.
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
