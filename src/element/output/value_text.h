#ifndef ELEMENT_OUTPUT_VALUE_TEXT_H
#define ELEMENT_OUTPUT_VALUE_TEXT_H

#include <string>

#include "element/schema/schema.h"

namespace element {

/// The value as a configuration file has it: as to_text(), but an enumeration by its name.
std::string file_text(const SchemaNode &leaf, const Value &value);

}  // namespace element

#endif
