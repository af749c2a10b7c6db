#ifndef TESTS_ELEMENT_EDIT_WRITER_H
#define TESTS_ELEMENT_EDIT_WRITER_H

#include <string>

#include "element/edit/edit.h"

namespace element {

/// The edit's nodes as NETCONF's <config> element, indented, with an operation attribute wherever the operation is not
/// that of the node around it; at the top that is merge. A node on the way is merged, for NETCONF has no attribute for
/// it. Throws std::runtime_error where the XML cannot be made.
std::string write_edit(const Schema &schema, const Edit &edit);

}  // namespace element

#endif
