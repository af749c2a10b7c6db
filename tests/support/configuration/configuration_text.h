#ifndef TESTS_SUPPORT_CONFIGURATION_CONFIGURATION_TEXT_H
#define TESTS_SUPPORT_CONFIGURATION_CONFIGURATION_TEXT_H

#include <string>

#include "element/datastore/tree.h"

/// A tree of operator's nodes as an XML configuration file, which the element reads back as the same tree. Keys and
/// values must be characters that XML has.
std::string configuration_text(const element::Tree &tree);

#endif
