#ifndef ELEMENT_INPUT_INPUT_FAULT_H
#define ELEMENT_INPUT_INPUT_FAULT_H

#include <cstddef>
#include <string>
#include <string_view>

#include "element/input/input_error.h"

namespace element {

/// Where an input is wrong.
struct InputPlace {
  std::string file;      ///< as errors name it
  std::size_t line = 0;  ///< from 1; 0: not known
  std::string path{};    ///< of the node that is meant; empty: none
};

/// An error with the message "FILE:LINE: PATH: fault; expected ...", without what is not known. Characters that steer a
/// terminal are escaped in path and fault, and a fault of more than 4,000 bytes is cut.
InputError input_fault(const InputPlace &place, std::string_view fault, std::string_view expected);

}  // namespace element

#endif
