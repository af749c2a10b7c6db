#ifndef MAINTENANCE_HOOKS_AGENT_VALUES_H
#define MAINTENANCE_HOOKS_AGENT_VALUES_H

#include "confd_lib.h"
#include "maintenance/recording/writer.h"

namespace hooks {

/// Writes a value as an item. False where its type is one whose content is not known here, as that of a list.
bool write(recording::Writer &writer, const confd_value_t &value);

/// Writes a path with its keys.
bool write(recording::Writer &writer, const confd_hkeypath_t &path);

/// The agent's value that was recorded as this one. Its text is not copied, so it lives as long as `value`.
confd_value_t borrowed(const recording::AgentValue &value);

/// The value as a recording holds it.
recording::AgentValue recorded(const confd_value_t &value);

}  // namespace hooks

#endif
