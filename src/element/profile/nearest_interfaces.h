#ifndef ELEMENT_PROFILE_NEAREST_INTERFACES_H
#define ELEMENT_PROFILE_NEAREST_INTERFACES_H

#include <cstddef>
#include <string>
#include <vector>

#include "element/profile/profile.h"

namespace element {

/// How many letters must be put in, left out, replaced, or swapped with their neighbour to make one name of the other
/// (optimal string alignment); capital letters are as good as small ones.
std::size_t spelling_distance(const std::string &a, const std::string &b);

/// The interfaces whose names are nearest to this one, in the profile's order, at most `most`. None where it takes more
/// than one letter and one of each eight to get there.
std::vector<std::string> nearest_interfaces(const std::string &name, const Profile &profile, std::size_t most);

/// What is said of an interface that the profile does not have: "not in the profile (near: a, b)".
std::string not_in_profile(const std::vector<std::string> &nearest);

}  // namespace element

#endif
