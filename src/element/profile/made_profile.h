#ifndef ELEMENT_PROFILE_MADE_PROFILE_H
#define ELEMENT_PROFILE_MADE_PROFILE_H

#include <string>
#include <vector>

#include "element/profile/interface_data.h"
#include "element/profile/profile.h"

namespace element {

/// What one file tells of the element's interfaces.
struct InterfaceFile {
  std::string file;  ///< as errors name it
  std::vector<InterfaceData> interfaces;
};

/// A profile with what is not known of the element.
struct MadeProfile {
  Profile profile;
  std::vector<std::string> notes;  ///< a line each: what was left out, made up or is missing
};

/// The profile of an element with this card and the interfaces of the files, in their order. Left out are those of a
/// type that no VPN, VLAN or snooping takes (loopbacks, tunnels, sub-interfaces, layer-3 interfaces) and names that no
/// profile can have. A logical-id is made up, and an ifindex where the data has none.
///
/// Throws InputError where the files hold no interface, and for an if-index that two of them have.
MadeProfile make_profile(const CardLimits &card, const std::vector<InterfaceFile> &files);

/// The profile as its file: a line an interface. read_profile reads it back.
std::string write_profile(const Profile &profile);

}  // namespace element

#endif
