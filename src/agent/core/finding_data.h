#ifndef AGENT_CORE_FINDING_DATA_H
#define AGENT_CORE_FINDING_DATA_H

#include <nlohmann/json_fwd.hpp>
#include <string>
#include <vector>

#include "agent/core/data_node.h"

namespace agent {

/// A member's text; empty where it is not there or no string.
std::string text_of(const nlohmann::json &object, const char *name);

/// A member's elements; none where it is not there or no array.
const nlohmann::json &list_of(const nlohmann::json &object, const char *name);

/// A finding of vpnval's document as the children of list "finding" of our YANG module. What the document lacks is left
/// out.
std::vector<DataNode> finding_data(const nlohmann::json &finding);

}  // namespace agent

#endif
