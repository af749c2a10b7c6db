#ifndef HEADROOM_BOUNDARY_H
#define HEADROOM_BOUNDARY_H

#include <cstdint>
#include <functional>
#include <optional>

#include "headroom/report.h"

namespace headroom {

/// The largest number that is accepted, and the rejection of the next one; no rejection if the search ran out of room.
struct Boundary {
  std::uint64_t accepted = 0;
  std::optional<Answer> rejection;
};

/// The rejection of the commit with `more` additions, or nothing if it is accepted.
using Rejection = std::function<std::optional<Answer>(std::uint64_t more)>;

/// By how many a rejected number is too large, as its message tells; nothing if the message does not tell.
using Excess = std::function<std::optional<std::uint64_t>(const Answer &rejection, std::uint64_t more)>;

/// Finds the boundary within 1 to `room`: first asks at `expected` + 1, then at ever doubled numbers until one is
/// rejected, then bisects. Both sides of the boundary are asked for, except that 0 counts as accepted. `expected` and
/// `excess` only shorten the search: wrong ones do not change the result.
Boundary find_boundary(std::uint64_t room, std::uint64_t expected, const Rejection &rejection, const Excess &excess);

}  // namespace headroom

#endif
