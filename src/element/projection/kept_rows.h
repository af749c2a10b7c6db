#ifndef ELEMENT_PROJECTION_KEPT_ROWS_H
#define ELEMENT_PROJECTION_KEPT_ROWS_H

#include <cstddef>
#include <cstdint>
#include <vector>

#include "element/datastore/tree.h"

namespace element {

/// VPNs by their numbers, in ascending order: at least `first`, less than `end`.
struct VpnRange {
  std::uint32_t first = 0;
  std::uint32_t end = 0;
};

/// Some of the VPNs that are kept.
class VpnSelection {
 public:
  /// The numbers must be greater than all that were added before.
  void add(VpnRange range);
  void add(const VpnSelection &other);

  const std::vector<VpnRange> &ranges() const { return ranges_; }
  std::size_t size() const { return size_; }

 private:
  std::vector<VpnRange> ranges_;
  std::size_t size_ = 0;
};

/// The entries of one derived list, VPN by VPN, so that those of some VPNs can be shared with another list.
class KeptRows {
 public:
  explicit KeptRows(const SchemaNode &list_schema) : list_{&list_schema, {}, {}, {}} {}

  /// The next VPN's entries: what `derive` appends to the list that it is given.
  template <typename Derive>
  void add(Derive derive) {
    derive(list_);
    ends_.push_back(static_cast<std::uint32_t>(list_.children.size()));
  }

  /// Looks at the order of the entries once all VPNs are added. A VPN may be there in two versions, one behind the
  /// other, of which a selection has one: `is_version[i]` tells that VPN i is another version of the one before it.
  void finish(const std::vector<bool> &is_version);

  /// Appends the entries of one VPN.
  void append(std::uint32_t vpn, Nodes &entries) const {
    entries.append_shared(list_.children, begin_of(vpn), ends_[vpn]);
  }

  /// Appends the entries of the VPNs. Returns whether they are in the order of their keys.
  bool append(const VpnSelection &selection, Nodes &entries) const;

 private:
  std::uint32_t begin_of(std::uint32_t vpn) const { return vpn == 0 ? 0 : ends_[vpn - 1]; }
  bool is_in_order(const std::vector<bool> &is_version) const;
  void append_in_order(const VpnSelection &selection, Nodes &entries) const;

  Node list_;
  std::vector<std::uint32_t> ends_;        ///< by VPN, the place behind its last entry
  std::vector<std::uint32_t> order_;       ///< the places by their keys; empty if they are in order VPN by VPN
  std::vector<std::uint32_t> vpn_of_row_;  ///< by place, where the order is another
};

}  // namespace element

#endif
