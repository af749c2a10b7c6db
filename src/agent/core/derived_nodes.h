#ifndef AGENT_CORE_DERIVED_NODES_H
#define AGENT_CORE_DERIVED_NODES_H

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "agent/core/path_steps.h"
#include "agent/core/settings.h"
#include "process/child.h"

namespace agent {

/// A leaf that the element's applications derive from the configuration, or an entry that holds none.
struct DerivedNode {
  std::vector<PathStep> path;
  std::string value;  ///< of a leaf; of an enumeration its name
};

/// Reads what a process left that ran vpnval show --format json; nothing where it printed no document.
std::optional<std::vector<DerivedNode>> read_derived(const process::Result &result);

/// Has a process of its own derive them from this configuration. Nothing where it fails or takes longer than the limit.
std::optional<std::vector<DerivedNode>> derive(const Settings &settings, const std::filesystem::path &running);

}  // namespace agent

#endif
