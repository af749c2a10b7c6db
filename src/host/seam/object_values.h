#ifndef HOST_SEAM_OBJECT_VALUES_H
#define HOST_SEAM_OBJECT_VALUES_H

#include "confd_lib.h"
#include "element/datastore/tree.h"

namespace host {

/// Writes the values of a list entry or container, at most `room`, to be freed by the caller of the seam: keys first,
/// then leafs and containers in schema order. A container is its tag and its own values, a list one C_NOEXISTS; what
/// is not set is C_NOEXISTS, and so are the keys that a hand-written entry lacks, while those it has too many follow
/// the others. `object` may be null: a container that is there with its surroundings only, or no room to write to.
/// Returns how many values it has.
int write_object(const element::SchemaNode &schema, const element::Node *object, confd_value_t *values, int room);

}  // namespace host

#endif
