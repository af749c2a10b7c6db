#ifndef ELEMENT_PROJECTION_PROJECTION_H
#define ELEMENT_PROJECTION_PROJECTION_H

#include <cstdint>
#include <map>
#include <string>
#include <utility>

#include "element/datastore/tree.h"
#include "element/profile/profile.h"

namespace element {

/// Numeric identifiers that the applications hand out when a thing is first configured, kept while it lives: the same
/// VPN has the same identifier in the running and the candidate configuration. They start at 1.
class Identifiers {
 public:
  using Name = std::pair<std::string, std::string>;  // group and VPN; for layer-3 interfaces the name and ""

  std::uint32_t vpls(const std::string &group, const std::string &vpn);
  std::uint32_t vpws(const std::string &group, const std::string &vpn);
  std::uint32_t layer3(const std::string &interface);

 private:
  std::map<Name, std::uint32_t> vpls_;
  std::map<Name, std::uint32_t> vpws_;
  std::map<Name, std::uint32_t> layer3_;
};

/// Adds to a tree of operator's nodes what the element's applications derive from them. The running configuration is
/// projected first, then the candidate with the same identifiers. The tree is sorted afterwards.
/// Throws InputError for an interface of a VLAN member or of snooping that the profile does not have.
void project(Tree &tree, const Profile &profile, Identifiers &identifiers);

}  // namespace element

#endif
