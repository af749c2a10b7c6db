#ifndef DIAGNOSIS_FREE_VALUES_H
#define DIAGNOSIS_FREE_VALUES_H

#include <cstddef>
#include <cstdint>
#include <set>
#include <string>
#include <vector>

#include "element/profile/profile.h"
#include "l2vpn/configuration.h"

namespace diagnosis {

/// At most `most` ranges as wide as the wanted one that meet no taken one, nor each other: those that begin nearest to
/// it first, of two the higher one. VLANs 1 to 4094.
std::vector<l2vpn::VlanRange> nearest_free_vlans(const l2vpn::VlanRange &wanted,
                                                 const std::vector<l2vpn::VlanRange> &taken, std::size_t most);

/// At most `most` numbers above 0 that are not taken, nearest to the wanted one first, of two the higher one.
std::vector<std::uint32_t> nearest_free_numbers(std::uint32_t wanted, const std::set<std::uint32_t> &taken,
                                                std::size_t most);

/// How many letters must be put in, left out, replaced, or swapped with their neighbour to make one name of the other
/// (optimal string alignment); capital letters are as good as small ones.
std::size_t spelling_distance(const std::string &a, const std::string &b);

/// The interfaces whose names are nearest to this one, in the profile's order, at most `most`. None where it takes more
/// than one letter and one of each eight to get there.
std::vector<std::string> nearest_interfaces(const std::string &name, const element::Profile &profile, std::size_t most);

}  // namespace diagnosis

#endif
