#ifndef HEADROOM_MEASURE_H
#define HEADROOM_MEASURE_H

#include <cstddef>
#include <cstdint>
#include <functional>

#include "headroom/report.h"
#include "host/run/plugin.h"

namespace headroom {

/// The most that any search adds to a candidate before it gives up.
inline constexpr std::uint64_t search_ceiling = 16384;

/// What is to be committed, and to what: two operator's configurations, sorted, and an element.
struct Commit {
  element::Tree running;
  element::Tree candidate;
  element::Profile profile;
};

/// Hears after each limit how many of how many are measured.
using Progress = std::function<void(std::size_t done, std::size_t total)>;

/// Has the library decide the commit, and then candidates with more and more in them, until it says for every limit
/// that it is too much. The library must have been loaded with the commit's card before it, for it reads some limits
/// once; no element may be active. Throws element::InputError where the profile lacks an interface that a configuration
/// needs, and host::ContractError.
Measurement measure(const host::Plugin &plugin, const Commit &commit, const Progress &progress);

}  // namespace headroom

#endif
