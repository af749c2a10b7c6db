#ifndef HEADROOM_MEASURE_H
#define HEADROOM_MEASURE_H

#include <cstddef>
#include <cstdint>
#include <functional>

#include "headroom/report.h"
#include "host/run/plugin.h"

namespace headroom {

/// The most that a search adds to a candidate.
inline constexpr std::uint64_t search_ceiling = 16384;

/// A commit on one element: two sorted trees of operator's nodes and the element's profile.
struct Commit {
  element::Tree running;
  element::Tree candidate;
  element::Profile profile;
};

/// Called after each limit with the number of limits measured and of all limits.
using Progress = std::function<void(std::size_t done, std::size_t total)>;

/// Has the library decide the commit, then finds for every limit how much more the library accepts, by asking it about
/// ever fuller candidates. The library must have been loaded with the commit's card, because it reads some limits once.
/// No element may be active. Throws element::InputError if the profile lacks an interface that a configuration needs,
/// and host::ContractError.
Measurement measure(const host::Plugin &plugin, const Commit &commit, const Progress &progress);

}  // namespace headroom

#endif
