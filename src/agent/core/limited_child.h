#ifndef AGENT_CORE_LIMITED_CHILD_H
#define AGENT_CORE_LIMITED_CHILD_H

#include <chrono>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "process/child.h"

namespace agent {

/// Runs a program to its end; nothing where it lasts beyond the limit, after which it is killed. Throws
/// std::system_error.
std::optional<process::Result> run_within(std::chrono::milliseconds limit, const std::filesystem::path &program,
                                          const std::vector<std::string> &arguments);

}  // namespace agent

#endif
