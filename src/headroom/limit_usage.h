#ifndef HEADROOM_LIMIT_USAGE_H
#define HEADROOM_LIMIT_USAGE_H

#include "headroom/limit_probe.h"
#include "headroom/validator.h"

namespace headroom {

/// Fills the limit until the library rejects. `is_accepted`: the library accepts the candidate as it is. If the
/// candidate is already rejected, rejections by other validation points than the limit's are ignored. The search begins
/// at `expected` more, which changes the number of calls and not the result.
LimitUsage find_usage(const Validator &validator, const LimitProbe &probe, bool is_accepted, std::uint64_t expected);

}  // namespace headroom

#endif
