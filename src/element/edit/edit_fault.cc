#include "element/edit/edit_fault.h"

#include <fmt/format.h>

#include "element/input/input_text.h"

namespace element {

InputError edit_fault(const std::string &origin, std::size_t line, const Path &path, std::string_view what,
                      std::string_view expected) {
  const std::string place = line == 0 ? origin : fmt::format("{}:{}", origin, line);
  const std::string at = path.empty() ? "" : one_line(to_text(path)) + ": ";
  return InputError(fmt::format("{}: {}{}; expected {}", place, at, one_line(what), expected));
}

}  // namespace element
