#ifndef ELEMENT_INPUT_CONFIGURATION_SOURCE_H
#define ELEMENT_INPUT_CONFIGURATION_SOURCE_H

#include "element/input/configuration_format.h"
#include "element/input/passed_over.h"
#include "element/input/source_lines.h"

namespace element {

/// What is known of the file that a configuration was read from, beside its tree.
struct ConfigurationSource {
  InputFormat format = InputFormat::xml;
  SourceLines lines;
  PassedOver passed_over;
};

}  // namespace element

#endif
