#ifndef ELEMENT_INPUT_JSON_READER_H
#define ELEMENT_INPUT_JSON_READER_H

#include <cstddef>
#include <string>
#include <string_view>

#include "element/input/input_pieces.h"

namespace element {

enum class JsonKind { null, boolean, number, text };

/// A value that is neither an object nor an array.
struct JsonScalar {
  JsonKind kind = JsonKind::null;
  std::string_view
      text;  ///< without quotes and escapes; a number as the file writes it, if it is no small whole number
};

/// A number as the data model takes it where it is a whole one, "1000" for "1e3".
std::string whole_number(std::string_view number);

/// Is told what a JSON input holds, in its order. `line` is that of a name's end, a brace or a bracket. Each function
/// may throw; reading ends then with the same exception.
class JsonEvents {
 public:
  virtual ~JsonEvents() = default;

  virtual void name(std::string_view name, std::size_t line) = 0;
  virtual void scalar(const JsonScalar &value) = 0;
  virtual void start_object(std::size_t line) = 0;
  virtual void end_object() = 0;
  virtual void start_array(std::size_t line) = 0;
  virtual void end_array() = 0;
};

/// Tells `events` all of one JSON value. Memory is bounded whatever the input holds.
///
/// Throws InputError, which names file, line and, where it is known, column, if the input is not exactly one
/// well-formed JSON value, is not UTF-8, is nested deeper than 100 levels, or has a name or value of more than 1 MiB;
/// and FileError where it cannot be read.
void read_json(InputPieces &input, JsonEvents &events);

}  // namespace element

#endif
