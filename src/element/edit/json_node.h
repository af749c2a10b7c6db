#ifndef ELEMENT_EDIT_JSON_NODE_H
#define ELEMENT_EDIT_JSON_NODE_H

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "element/input/input_pieces.h"

namespace element {

/// A JSON value with all it holds.
struct JsonNode {
  enum class Kind { null, boolean, number, text, object, array };

  Kind kind = Kind::null;
  std::string name;                ///< of the member whose value it is; empty in an array and outermost
  std::string text;                ///< of a value that is neither object nor array, without quotes and escapes
  std::vector<JsonNode> children;  ///< members of an object, values of an array
  std::size_t line = 0;            ///< of the member's name; of the bracket or brace where there is none; from 1

  /// The member of this name, or null.
  const JsonNode *member(std::string_view member_name) const;
};

/// A member's name in its two parts.
struct QualifiedName {
  std::string_view module;  ///< empty: not given
  std::string_view name;
};

QualifiedName qualified_name(std::string_view member);

/// The one JSON value of an input. Memory grows with it. Throws as read_json does, and InputError for an object with
/// two members of one name.
JsonNode read_json_node(InputPieces &input);

}  // namespace element

#endif
