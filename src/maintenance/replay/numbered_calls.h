#ifndef MAINTENANCE_REPLAY_NUMBERED_CALLS_H
#define MAINTENANCE_REPLAY_NUMBERED_CALLS_H

#include <cstddef>
#include <vector>

#include "maintenance/recording/recording.h"

namespace replay {

/// A call of a recording, counted from 1 in the order in which the library asked.
struct NumberedCall {
  std::size_t number = 0;
  const recording::Call *call = nullptr;
};

/// All calls of a recording, those inside of callbacks after the call that the callback belongs to.
std::vector<NumberedCall> numbered_calls(const recording::Recording &recording);

}  // namespace replay

#endif
