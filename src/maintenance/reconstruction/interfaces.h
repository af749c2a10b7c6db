#ifndef MAINTENANCE_RECONSTRUCTION_INTERFACES_H
#define MAINTENANCE_RECONSTRUCTION_INTERFACES_H

#include <memory>

#include "element/profile/profile.h"
#include "maintenance/reconstruction/facts.h"

namespace reconstruction {

/// The interfaces of the element: those that the recording knows, with identifiers, and others as they are needed.
class Interfaces {
 public:
  explicit Interfaces(const Facts &facts);

  /// The name of the interface with this ifindex; made up where the recording has none.
  const std::string &name_of(std::int32_t ifindex);
  /// Adds an interface, unless the recording says that the element does not have it.
  void add(const std::string &name);
  /// A name that no other interface has.
  std::string new_name();

  std::shared_ptr<const element::Profile> profile(const element::CardLimits &card) const;

 private:
  std::uint32_t new_id();
  std::int32_t new_ifindex();

  std::map<std::string, std::pair<std::uint32_t, std::int32_t>> by_name_;  ///< logical identifier and ifindex
  std::map<std::int32_t, std::string> by_ifindex_;
  std::set<std::uint32_t> ids_;
  std::set<std::string> unknown_;
};

}  // namespace reconstruction

#endif
