#ifndef AGENT_CORE_PATH_STEPS_H
#define AGENT_CORE_PATH_STEPS_H

#include <string>
#include <string_view>
#include <vector>

namespace agent {

struct PathStep {
  std::string name;
  std::vector<std::string> keys;  ///< in the list's order

  bool operator==(const PathStep &) const = default;
};

/// The steps of a path as vpnval writes it: "/group{metro}/vpn{"a b" 2}".
std::vector<PathStep> path_steps(std::string_view path);

}  // namespace agent

#endif
