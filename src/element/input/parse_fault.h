#ifndef ELEMENT_INPUT_PARSE_FAULT_H
#define ELEMENT_INPUT_PARSE_FAULT_H

#include <cstdint>
#include <string>

#include "element/input/input_error.h"
#include "element/input/source_lines.h"
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

/// The fault described by libyang's first error record on the text of an OwnConfiguration: "ORIGIN:LINE: PATH: message;
/// expected ...", without the line if that is not known. Throws std::bad_alloc if the record says that memory ran out.
InputError first_fault(const Schema &schema, const SourceLines &lines, const std::string &origin);

}  // namespace element

#endif
