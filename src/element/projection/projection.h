#ifndef ELEMENT_PROJECTION_PROJECTION_H
#define ELEMENT_PROJECTION_PROJECTION_H

#include <memory>

#include "element/datastore/tree.h"
#include "element/profile/profile.h"

namespace element {

class Identifiers;
class KeptVpns;

/// Derives what the element's applications make of an operator's configuration. Identifiers that the applications hand
/// out stay the same from one configuration to the next: the same VPN has the same one in the running and the candidate
/// configuration. They start at 1, in the order in which the things are met.
class Projector {
 public:
  /// The profile must outlive the projector.
  explicit Projector(const Profile &profile);
  ~Projector();
  Projector(const Projector &) = delete;
  Projector &operator=(const Projector &) = delete;

  /// Adds the derived tables to a sorted tree of operator's nodes. Throws InputError for an interface of a VLAN
  /// member or of snooping that the profile does not have.
  void project(Tree &configuration);

  /// Derives for every VPN of a sorted tree, so that trees which share a VPN's entry with it are projected without
  /// deriving for that VPN again. Memory: about what the derived tables take, for as long as the projector lives.
  void keep(const Tree &configuration);

 private:
  const Profile &profile_;
  std::unique_ptr<Identifiers> identifiers_;
  std::unique_ptr<KeptVpns> kept_;
};

}  // namespace element

#endif
