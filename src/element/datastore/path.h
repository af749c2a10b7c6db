#ifndef ELEMENT_DATASTORE_PATH_H
#define ELEMENT_DATASTORE_PATH_H

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "element/schema/schema.h"
#include "element/schema/value.h"

namespace element {

/// A path that does not fit the data model; what() names the path, the offending part and what was expected.
class PathError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// One name of a path and, for a list, the keys that stood in braces after it (none: the list itself).
struct PathStep {
  const SchemaNode *schema = nullptr;
  std::vector<Value> keys;
};

using Path = std::vector<PathStep>;

/// Reads "/a/prefix:b{key1 key2}/c". Keys are separated by blanks; a key or a part of one may stand in double quotes,
/// where a backslash keeps the next character. Keys are typed by the schema; all of a list's keys or none are given.
/// Throws PathError.
Path parse_path(const Schema &schema, std::string_view text);

/// The path as text that parse_path reads back, without prefixes; keys are quoted where they need it.
std::string to_text(const Path &path);

/// A key as it stands in a path, quoted when it is empty or holds a blank, a brace, a quote or a backslash.
std::string quoted_key(std::string_view key);

}  // namespace element

#endif
