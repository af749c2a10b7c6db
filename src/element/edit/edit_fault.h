#ifndef ELEMENT_EDIT_EDIT_FAULT_H
#define ELEMENT_EDIT_EDIT_FAULT_H

#include <cstddef>
#include <string_view>

#include "element/datastore/path.h"
#include "element/edit/edit.h"
#include "element/input/input_error.h"

namespace element {

/// An error with the message "FILE:LINE: PATH: what; expected ...", where a YANG patch's edit is named behind what is
/// wrong. Without path at the top, without line where it is 0.
InputError edit_fault(const EditOrigin &origin, std::size_t line, const Path &path, std::string_view what,
                      std::string_view expected);

}  // namespace element

#endif
