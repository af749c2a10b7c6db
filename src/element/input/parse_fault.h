#ifndef ELEMENT_INPUT_PARSE_FAULT_H
#define ELEMENT_INPUT_PARSE_FAULT_H

#include <cstddef>
#include <cstdint>
#include <string>

#include "element/input/configuration_text.h"
#include "element/input/input_error.h"
#include "element/schema/schema.h"

namespace element {

/// Keeps libyang's messages of this thread in its error records and off standard error while the object lives.
class CollectedMessages {
 public:
  explicit CollectedMessages(const Schema &schema);
  ~CollectedMessages();
  CollectedMessages(const CollectedMessages &) = delete;
  CollectedMessages &operator=(const CollectedMessages &) = delete;

 private:
  ly_ctx *context_;
  std::uint32_t options_;
};

/// Why a configuration was refused.
struct ParseFault {
  std::size_t line = 0;  ///< from 1, or 0 where it is not known
  std::string path;      ///< data path, or empty
  std::string message;
  std::string expected;
  std::string missing_node;  ///< schema path of a mandatory node that some instance lacks, or empty
};

/// What libyang's first error record says; it was given the text after the first `lines_above` lines. Throws
/// std::bad_alloc where it says that memory ran out.
ParseFault first_fault(const Schema &schema, InputFormat format, std::size_t lines_above);

/// "ORIGIN:LINE: PATH: message; expected ...", line and path where they are known.
InputError to_input_error(const std::string &origin, const ParseFault &fault);

}  // namespace element

#endif
