#ifndef HEADROOM_SPARE_NAMES_H
#define HEADROOM_SPARE_NAMES_H

#include <cstdint>
#include <set>
#include <string>
#include <vector>

#include "element/datastore/tree.h"
#include "element/profile/profile.h"

namespace headroom {

enum class PortKind { ethernet, service_port };

/// Names and addresses that occur neither in the two configurations nor in the element's profile, so that what is added
/// under them conflicts with nothing. The same commit gets the same ones in the same order.
class SpareNames {
 public:
  SpareNames(const element::Tree &running, const element::Tree &candidate, const element::Profile &profile);

  /// A name for a group of VPNs.
  std::string group() const;

  /// Names of `count` ports.
  std::vector<std::string> ports(PortKind kind, std::uint64_t count) const;

  /// Addresses of `count` neighbours.
  std::vector<element::Ipv4> addresses(std::uint64_t count) const;

 private:
  /// Excludes the keys at and below a node.
  void take_keys(const element::Node &node);

  std::set<std::string> texts_;
  std::set<std::uint32_t> addresses_;
};

/// The profile with these ports in addition, under identifiers that it does not have yet.
element::Profile with_ports(const element::Profile &profile, const std::vector<std::string> &names);

}  // namespace headroom

#endif
