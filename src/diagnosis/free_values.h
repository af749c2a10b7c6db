#ifndef DIAGNOSIS_FREE_VALUES_H
#define DIAGNOSIS_FREE_VALUES_H

#include <cstddef>
#include <cstdint>
#include <set>
#include <vector>

#include "l2vpn/configuration.h"

namespace diagnosis {

/// At most `most` ranges as wide as the wanted one that meet no taken one, nor each other: those that begin nearest to
/// it first, of two the higher one. VLANs 1 to 4094.
std::vector<l2vpn::VlanRange> nearest_free_vlans(const l2vpn::VlanRange &wanted,
                                                 const std::vector<l2vpn::VlanRange> &taken, std::size_t most);

/// At most `most` numbers above 0 that are not taken, nearest to the wanted one first, of two the higher one.
std::vector<std::uint32_t> nearest_free_numbers(std::uint32_t wanted, const std::set<std::uint32_t> &taken,
                                                std::size_t most);

}  // namespace diagnosis

#endif
