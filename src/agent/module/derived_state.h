#ifndef AGENT_MODULE_DERIVED_STATE_H
#define AGENT_MODULE_DERIVED_STATE_H

#include <functional>
#include <optional>
#include <vector>

#include "agent/core/derived_nodes.h"
#include "agent/module/yuma.h"

namespace agent {

/// Has the operation get return what the element's applications derive from the running configuration. `derived` gives
/// it, or nothing where it cannot be had.
status_t add_derived_state(std::function<std::optional<std::vector<DerivedNode>>()> derived);

/// To be called before a get: the agent would return what it was given before for some seconds more.
void forget_derived_state(val_value_t *running);

}  // namespace agent

#endif
