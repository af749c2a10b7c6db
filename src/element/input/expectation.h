#ifndef ELEMENT_INPUT_EXPECTATION_H
#define ELEMENT_INPUT_EXPECTATION_H

#include <libyang/libyang.h>

#include <string>
#include <string_view>

#include "element/input/parse_fault.h"
#include "element/schema/schema.h"

namespace element {

/// A message of libyang's parser.
struct ParserMessage {
  LY_VECODE kind;
  std::string_view text;
  std::string_view path;  ///< data path, or empty
  bool is_rule = false;   ///< the text is a rule of the data model that the configuration breaks
};

/// What an operator should have written instead, for the "expected ..." part of an error: the type and range of a
/// value, the names of the children that a node may have, or a rule. libyang's own messages seldom say it.
std::string expected_instead(const Schema &schema, InputFormat format, const ParserMessage &message);

/// "well-formed XML" or "well-formed JSON".
std::string well_formed(InputFormat format);

/// Whether libyang's message says that a mandatory node is missing.
bool is_about_missing_node(std::string_view message);

}  // namespace element

#endif
