#ifndef TESTS_SUPPORT_PATH_H
#define TESTS_SUPPORT_PATH_H

#include <cstdarg>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace scripted {

/// A path, or a key count, that cannot be meant.
class PathError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// A name without its module prefix, and the keys that stood in braces after it.
struct Step {
  std::string name;
  std::vector<std::string> keys;

  bool operator==(const Step &) const = default;
};

using Path = std::vector<Step>;

/// Reads "/a/prefix:b{key1 key2}/c". Keys are separated by blanks; a key or a part of one may stand in double quotes,
/// where a backslash keeps the next character. Throws PathError.
Path parse_path(std::string_view text);

/// Substitutes %s, %d, %u and %%. A text that stands in braces in the format is one key, blanks and all: it comes out
/// quoted where it must be. Outside braces it is taken over as it is. Throws PathError for another conversion.
std::string format_path(const char *format, va_list arguments);

/// The path in one form, without prefixes; parse_path reads it back.
std::string to_text(const Path &path);

/// The path's names alone: the node in the data model.
std::string node_text(const Path &path);

/// Whether `path` is `ancestor` or lies below it; an ancestor that ends in a list's name covers its entries.
bool is_at_or_below(const Path &path, const Path &ancestor);

}  // namespace scripted

#endif
