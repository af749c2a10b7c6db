#ifndef ELEMENT_INPUT_PARSE_FAULT_H
#define ELEMENT_INPUT_PARSE_FAULT_H

#include <cstddef>
#include <cstdint>
#include <string>

#include "element/input/configuration_text.h"
#include "element/input/input_error.h"
#include "element/schema/schema.h"

namespace element {

/// While the object lives, libyang stores this thread's messages in its error records and prints none of them.
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

/// The fault described by libyang's first error record. `lines_above` is the number of lines before the text that
/// libyang parsed; it is added to the fault's line. Throws std::bad_alloc if the record says that memory ran out.
ParseFault first_fault(const Schema &schema, InputFormat format, std::size_t lines_above);

/// An error with the message "ORIGIN:LINE: PATH: message; expected ...", without line or path if that is not known.
InputError to_input_error(const std::string &origin, const ParseFault &fault);

}  // namespace element

#endif
