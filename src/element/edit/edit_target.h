#ifndef ELEMENT_EDIT_EDIT_TARGET_H
#define ELEMENT_EDIT_EDIT_TARGET_H

#include <cstddef>
#include <string_view>

#include "element/edit/edit_model.h"

namespace element {

/// Sets the model's path to what a YANG patch's target names, "/base:config/vlan=5/interface=eth%2F1": RESTCONF's
/// data resource identifier (RFC 8040, section 3.5.3) from the top. A name has its module wherever that is not the one
/// of the node around it. "/" is the whole configuration, an empty path. A list has its keys.
///
/// Precondition: the model's path is empty. Throws InputError, as the model does, for any other text, a node that the
/// data model does not have, and a key that it does not allow.
void read_target(EditModel &model, std::string_view target, std::size_t line);

}  // namespace element

#endif
