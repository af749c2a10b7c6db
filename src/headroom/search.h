#ifndef HEADROOM_SEARCH_H
#define HEADROOM_SEARCH_H

#include <cstdint>
#include <functional>
#include <optional>

#include "headroom/report.h"

namespace headroom {

/// Where acceptance ends: that many more are accepted, and one more draws the rejection; none where there is no room.
struct Edge {
  std::uint64_t accepted = 0;
  std::optional<Answer> rejection;
};

/// The rejection that so many more draw, or nothing.
using Rejection = std::function<std::optional<Answer>(std::uint64_t more)>;

/// How many fewer would be accepted, as a rejection tells; nothing where it does not.
using Excess = std::function<std::optional<std::uint64_t>(const Answer &rejection, std::uint64_t more)>;

/// Looks from 1 to `room` for an edge, first where it is suspected, doubling from there, then between: both sides of
/// the edge have been asked for, except that 0 is taken to be accepted. What is suspected or told only shortens the
/// way.
Edge find_edge(std::uint64_t room, std::uint64_t suspected, const Rejection &rejection, const Excess &excess);

}  // namespace headroom

#endif
