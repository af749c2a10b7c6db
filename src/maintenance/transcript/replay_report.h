#ifndef MAINTENANCE_TRANSCRIPT_REPLAY_REPORT_H
#define MAINTENANCE_TRANSCRIPT_REPLAY_REPORT_H

#include <string>

#include "maintenance/replay/replay.h"

namespace transcript {

/// What came of a replay, for a reader: the same verdict or not; where the library asked for what was not recorded,
/// that call with the five before it; and the answers that it did not ask for, the first twenty of them.
std::string replay_text(const recording::Recording &recording, const replay::Outcome &outcome);

/// The same as a JSON document with a line end, whole.
std::string replay_json(const recording::Recording &recording, const replay::Outcome &outcome);

}  // namespace transcript

#endif
