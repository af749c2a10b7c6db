#ifndef HEADROOM_REMAINDER_H
#define HEADROOM_REMAINDER_H

#include "headroom/fill.h"
#include "headroom/judge.h"

namespace headroom {

/// Uses up the limit until the library says so. `is_accepted` tells whether the candidate itself is. The rejections of
/// one that is not are left out of account where they come from other points than the limit's. The search begins where
/// `suspected` more fit.
Remainder find_remainder(const Judge &judge, const Fill &fill, bool is_accepted, std::uint64_t suspected);

}  // namespace headroom

#endif
