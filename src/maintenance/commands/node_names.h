#ifndef MAINTENANCE_COMMANDS_NODE_NAMES_H
#define MAINTENANCE_COMMANDS_NODE_NAMES_H

#include "element/schema/schema.h"
#include "maintenance/transcript/text.h"

namespace maintenance {

/// The names of the data model's nodes by their tags.
transcript::NodeName node_names(const element::Schema &schema);

}  // namespace maintenance

#endif
