#ifndef MAINTENANCE_RECORDING_ASKED_PATH_H
#define MAINTENANCE_RECORDING_ASKED_PATH_H

#include <string>
#include <vector>

#include "maintenance/recording/recording.h"

namespace recording {

/// One step of a path: a node and, where it is an entry of a list, its keys.
struct PathStep {
  std::string name;  ///< without its module's prefix
  std::vector<std::string> keys;
};

/// The path that a format and its arguments ask for, as the platform reads it: within braces an argument is one key,
/// also with a blank in it; everywhere else a blank between braces separates two keys.
std::vector<PathStep> asked_path(const Format &format);

/// "/a/b" without keys.
std::string node_path(const std::vector<PathStep> &steps);

}  // namespace recording

#endif
