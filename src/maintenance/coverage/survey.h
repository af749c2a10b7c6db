#ifndef MAINTENANCE_COVERAGE_SURVEY_H
#define MAINTENANCE_COVERAGE_SURVEY_H

#include <filesystem>

#include "maintenance/commits/commit.h"
#include "maintenance/coverage/cell.h"

namespace coverage {

/// The cells that a commit fills. The library decides it once as it is, and once for each platform call that can fail,
/// with a lost connection at that call; of the uses of a function by one step in one question, the first three stand
/// for all. In a process of its own. Throws std::runtime_error where the library cannot be asked at all.
Cells cells_of(const std::filesystem::path &library, const maintenance::Commit &commit);

}  // namespace coverage

#endif
