#ifndef ELEMENT_INPUT_EXPECTATION_H
#define ELEMENT_INPUT_EXPECTATION_H

#include <string>
#include <string_view>

#include "element/schema/schema.h"

namespace element {

/// A message of libyang's parser.
struct ParserMessage {
  std::string_view text;
  bool is_rule = false;  ///< the text is a rule of the data model that the configuration breaks
};

/// What an operator should have written instead at `node`, for the "expected ..." part of an error: the type and range
/// of a value, or that a rule is kept. libyang's own messages seldom say it. `node` may be null where it is not known.
std::string expected_instead(const Schema &schema, const SchemaNode *node, const ParserMessage &message);

}  // namespace element

#endif
