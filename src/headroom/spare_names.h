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

/// Names and addresses that neither a configuration nor the element's profile has, so that what is added under them
/// meets nothing that is there.
class SpareNames {
 public:
  SpareNames(const element::Tree &running, const element::Tree &candidate, const element::Profile &profile);

  /// For a group of VPNs; always the same one.
  std::string group() const;

  /// Of `count` ports: always the same ones in the same order.
  std::vector<std::string> ports(PortKind kind, std::uint64_t count) const;

  /// Of `count` neighbours, likewise.
  std::vector<element::Ipv4> addresses(std::uint64_t count) const;

 private:
  void take_keys(const element::Node &node);

  std::set<std::string> texts_;
  std::set<std::uint32_t> addresses_;
};

/// The element with these ports in addition.
element::Profile with_ports(const element::Profile &profile, const std::vector<std::string> &names);

}  // namespace headroom

#endif
