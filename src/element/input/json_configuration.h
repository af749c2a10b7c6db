#ifndef ELEMENT_INPUT_JSON_CONFIGURATION_H
#define ELEMENT_INPUT_JSON_CONFIGURATION_H

#include "element/input/own_configuration.h"

namespace element {

/// As read_own_configuration, from JSON as it stands for YANG data (RFC 7951).
OwnConfiguration read_json_configuration(const Schema &schema, InputPieces &input, const ReadOptions &options);

}  // namespace element

#endif
