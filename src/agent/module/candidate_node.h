#ifndef AGENT_MODULE_CANDIDATE_NODE_H
#define AGENT_MODULE_CANDIDATE_NODE_H

#include <string_view>

#include "agent/module/yuma.h"

namespace agent {

/// The node of a datastore that a path of vpnval names, or null. Precondition: `root` is the datastore's.
val_value_t *find_node(val_value_t *root, std::string_view path);

}  // namespace agent

#endif
