#ifndef ELEMENT_OUTPUT_CONFIGURATION_WRITER_H
#define ELEMENT_OUTPUT_CONFIGURATION_WRITER_H

#include <string>

#include "element/datastore/tree.h"
#include "element/input/configuration_format.h"

namespace element {

/// The operator's nodes of a sorted tree as a configuration file, indented, which read_configuration() reads as the
/// same nodes; derived nodes are left out. Throws std::runtime_error for a value that the data model does not allow.
std::string write_configuration(const Tree &tree, InputFormat format);

}  // namespace element

#endif
