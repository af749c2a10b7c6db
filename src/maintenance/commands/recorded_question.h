#ifndef MAINTENANCE_COMMANDS_RECORDED_QUESTION_H
#define MAINTENANCE_COMMANDS_RECORDED_QUESTION_H

#include <filesystem>

#include "maintenance/commits/answer.h"
#include "maintenance/recording/recording.h"

namespace maintenance {

/// What a library answers to the one validation point of a recording, with every answer of the platform as it was
/// recorded. Trace and calls are left out. Throws host::LoadError.
Answer ask_recorded(const recording::Recording &recording, const std::filesystem::path &library);

}  // namespace maintenance

#endif
