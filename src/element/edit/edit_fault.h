#ifndef ELEMENT_EDIT_EDIT_FAULT_H
#define ELEMENT_EDIT_EDIT_FAULT_H

#include <cstddef>
#include <string>
#include <string_view>

#include "element/datastore/path.h"
#include "element/input/input_error.h"

namespace element {

/// An error with the message "ORIGIN:LINE: PATH: what; expected ...". Without path at the top, without line where it
/// is 0.
InputError edit_fault(const std::string &origin, std::size_t line, const Path &path, std::string_view what,
                      std::string_view expected);

}  // namespace element

#endif
