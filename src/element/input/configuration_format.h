#ifndef ELEMENT_INPUT_CONFIGURATION_FORMAT_H
#define ELEMENT_INPUT_CONFIGURATION_FORMAT_H

namespace element {

enum class InputFormat { xml, json };

}  // namespace element

#endif
