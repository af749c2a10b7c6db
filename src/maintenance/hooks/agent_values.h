#ifndef MAINTENANCE_HOOKS_AGENT_VALUES_H
#define MAINTENANCE_HOOKS_AGENT_VALUES_H

#include "confd_lib.h"
#include "maintenance/recording/writer.h"

namespace hooks {

/// Writes a value as an item. False where its type is one whose content is not known here, as that of a list.
bool write(recording::Writer &writer, const confd_value_t &value);

/// Writes a path with its keys.
bool write(recording::Writer &writer, const confd_hkeypath_t &path);

/// As what it was when it was written; texts stay where they are, ended by a zero byte.
confd_value_t borrowed(const recording::AgentValue &value);

/// What write() would write of it.
recording::AgentValue recorded(const confd_value_t &value);

}  // namespace hooks

#endif
