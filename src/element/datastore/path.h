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

/// One step of a path. For a list with keys it means that entry, without keys the list itself.
struct PathStep {
  const SchemaNode *schema = nullptr;
  std::vector<Value> keys;
};

using Path = std::vector<PathStep>;

/// Parses "/a/prefix:b{key1 key2}/c"; prefixes are optional. Keys are separated by blanks. A key or a part of it may be
/// quoted with double quotes, in which a backslash escapes the next character. A list has all its keys or none; each is
/// converted to the type that the schema gives it. Throws PathError.
Path parse_path(const Schema &schema, std::string_view text);

/// The path as text that parse_path reads back, without prefixes; keys are quoted where they need it.
std::string to_text(const Path &path);

/// A key as written in a path: quoted if it is empty or contains a blank, a brace, a quote or a backslash.
std::string quoted_key(std::string_view key);

}  // namespace element

#endif
