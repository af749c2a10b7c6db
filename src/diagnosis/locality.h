#ifndef DIAGNOSIS_LOCALITY_H
#define DIAGNOSIS_LOCALITY_H

#include <functional>
#include <vector>

#include "diagnosis/entries.h"

namespace diagnosis {

/// Which entries are likely to matter to each other: those of one VPN, those that take a VLAN of one port, before or
/// after the commit, pseudowires of one pw-id towards one neighbour, an uplink with the members of its VLAN. It is a
/// guess that saves questions; what it misses is found by asking about the whole.
class Locality {
 public:
  /// `is_over` is asked every so many entries; once it says so, no more are joined.
  Locality(const Entries &entries, std::function<bool()> is_over);

  /// The entries likely to matter to those of the set, with them and what they all need.
  NumberSet around(const NumberSet &set) const;

  /// The entries that the commit changes with what is around them, in closed sets of about `size` entries.
  std::vector<NumberSet> bundles(std::size_t size) const;

 private:
  template <typename Visit>
  void for_each_entry(Visit visit);
  std::uint32_t leader(std::uint32_t entry) const;
  void join(std::uint32_t a, std::uint32_t b);
  void join_vpns();
  void join_ports();
  void join_pseudowires();
  void join_uplinks();
  void collect();

  const Entries &entries_;
  std::function<bool()> is_over_;
  mutable std::vector<std::uint32_t> leaders_;  ///< disjoint-set forest
  std::vector<NumberSet> components_;
  std::vector<std::uint32_t> component_of_;  ///< by entry; kNone for a group
};

}  // namespace diagnosis

#endif
