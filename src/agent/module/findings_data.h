#ifndef AGENT_MODULE_FINDINGS_DATA_H
#define AGENT_MODULE_FINDINGS_DATA_H

#include <vector>

#include "agent/core/answer.h"
#include "agent/module/yuma.h"

namespace agent {

/// Our YANG module in the agent; null before it is loaded.
ncx_module_t *own_module();

/// Adds an entry of list finding for each of them to a value of our module.
void add_findings(val_value_t *parent, const std::vector<Finding> &findings);

/// A leaf of our module, owned by the caller.
val_value_t *make_leaf(obj_template_t *parent, const char *name, const std::string &text);

}  // namespace agent

#endif
