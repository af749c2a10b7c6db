#ifndef MAINTENANCE_RECORDING_ASKED_PATH_H
#define MAINTENANCE_RECORDING_ASKED_PATH_H

#include <string>
#include <vector>

#include "maintenance/recording/recording.h"

namespace recording {

/// One node on the way, with the keys of a list's entry.
struct PathStep {
  std::string name;  ///< without its module's prefix
  std::vector<std::string> keys;
};

/// The path that a format asks for, as the platform reads it: an argument of its own is one key, and a blank that was
/// put into a path before parts two.
std::vector<PathStep> asked_path(const Format &format);

/// "/a/b" without keys.
std::string node_path(const std::vector<PathStep> &steps);

}  // namespace recording

#endif
