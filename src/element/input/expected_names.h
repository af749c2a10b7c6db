#ifndef ELEMENT_INPUT_EXPECTED_NAMES_H
#define ELEMENT_INPUT_EXPECTED_NAMES_H

#include <string>

#include "element/input/configuration_format.h"
#include "element/schema/schema.h"

namespace element {

/// "one of a, b": the children that an operator may write below `parent`, as the format writes them there; "nothing
/// below it" where there are none.
std::string names_below(const Schema &schema, const SchemaNode &parent, InputFormat format);

}  // namespace element

#endif
