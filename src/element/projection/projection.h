#ifndef ELEMENT_PROJECTION_PROJECTION_H
#define ELEMENT_PROJECTION_PROJECTION_H

#include <memory>

#include "element/datastore/tree.h"
#include "element/profile/profile.h"

namespace element {

class Identifiers;
class KeptFamily;

/// Adds to an operator's configuration the tables that the element's applications derive from it. A VPN or layer-3
/// interface has the same identifier in every configuration that goes through one projector. Identifiers start at 1 and
/// are assigned in the order in which names first appear.
class Projector {
 public:
  /// The profile must outlive the projector.
  explicit Projector(const Profile &profile);
  ~Projector();
  Projector(const Projector &) = delete;
  Projector &operator=(const Projector &) = delete;

  /// Adds the derived tables to a sorted tree of the operator's nodes. Throws InputError if a VLAN member or multicast
  /// snooping names an interface that the profile does not have.
  void project(Tree &configuration);

  /// Derives and caches the entries of every VPN of two sorted trees. project() then takes the cached entries for
  /// groups and VPNs whose node a tree shares with one of these. The cache takes about as much memory as the derived
  /// tables and lives as long as the projector, or until trees are kept again.
  void keep(const Tree &running, const Tree &candidate);

 private:
  const Profile &profile_;
  std::unique_ptr<Identifiers> identifiers_;
  std::unique_ptr<KeptFamily> kept_vpls_;  ///< null until trees are kept
  std::unique_ptr<KeptFamily> kept_vpws_;
};

}  // namespace element

#endif
