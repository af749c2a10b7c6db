#include "element/edit/edit_fault.h"

#include <fmt/format.h>

#include "element/input/input_fault.h"
#include "element/input/input_text.h"

namespace element {

InputError edit_fault(const EditOrigin &origin, std::size_t line, const Path &path, std::string_view what,
                      std::string_view expected) {
  const std::string edit = origin.edit_id.empty() ? "" : fmt::format(" (edit \"{}\")", one_line(origin.edit_id));
  return input_fault({origin.file, line, path.empty() ? "" : to_text(path)}, one_line(what) + edit, expected);
}

}  // namespace element
