#ifndef ELEMENT_PROJECTION_KEPT_FAMILY_H
#define ELEMENT_PROJECTION_KEPT_FAMILY_H

#include <optional>
#include <unordered_map>
#include <vector>

#include "element/projection/kept_rows.h"
#include "element/projection/projection_tables.h"

namespace element {

/// The derived entries of one family's VPNs of two configurations. They are found by the address of a VPN's entry, or
/// of its group's, in these configurations, of which the cache owns a share, so that no address is used again while it
/// lives. The VPNs are numbered in the order of their names.
class KeptFamily {
 public:
  /// Both trees are sorted. The running configuration's VPNs get their identifiers first.
  KeptFamily(const VpnFamily &family, const Tree &running, const Tree &candidate, IdentifierSpace &identifiers);

  /// A group with all its VPNs.
  struct Group {
    VpnSelection vpns;
    std::size_t row = 0;  ///< its place in group_rows()
  };

  /// The group whose entry this is, or null.
  const Group *find_group(const Node &entry) const;

  /// The number of the VPN whose entry this is. Quick where it is the VPN at `guess` or the one behind.
  std::optional<std::uint32_t> find_vpn(const Node &entry, std::uint32_t guess) const;

  const Nodes &group_rows() const { return group_list_.children; }  ///< entries of the table of groups
  const KeptRows &vpn_rows() const { return vpn_rows_; }            ///< entries below a group of that table
  const KeptRows &rows(std::size_t table) const { return tables_[table]; }

 private:
  void add_group(const Node *running, const Node *candidate);
  void add_vpn(const Vpn &vpn, bool is_version);
  void add_group_row(const Node &group, const VpnSelection &vpns);

  const VpnFamily &family_;
  IdentifierSpace &identifiers_;
  Tree running_;
  Tree candidate_;
  Node group_list_;
  KeptRows vpn_rows_;
  std::vector<KeptRows> tables_;  ///< one for each of the family's
  std::vector<const Node *> vpns_;
  std::vector<bool> is_version_;  ///< by VPN: it has the name of the one before it
  std::unordered_map<const Node *, std::uint32_t> number_of_vpn_;
  std::unordered_map<const Node *, Group> groups_;
};

}  // namespace element

#endif
