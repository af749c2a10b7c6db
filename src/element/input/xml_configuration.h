#ifndef ELEMENT_INPUT_XML_CONFIGURATION_H
#define ELEMENT_INPUT_XML_CONFIGURATION_H

#include "element/input/own_configuration.h"

namespace element {

/// As read_own_configuration, from XML.
OwnConfiguration read_xml_configuration(const Schema &schema, InputPieces &input, const ReadOptions &options);

}  // namespace element

#endif
