#ifndef REPORT_VALUE_TEXT_H
#define REPORT_VALUE_TEXT_H

#include <string>

#include "element/datastore/tree.h"

namespace report {

/// A leaf's value for a reader; an enumeration with its name and number ("off (2)"). Empty for a leaf without a value.
std::string value_text(const element::Node &leaf);

}  // namespace report

#endif
