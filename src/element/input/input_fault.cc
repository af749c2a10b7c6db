#include "element/input/input_fault.h"

#include <fmt/format.h>

#include "element/input/input_text.h"

namespace element {
namespace {

constexpr std::size_t kLongestFault = 4000;

}  // namespace

InputError input_fault(const InputPlace &place, std::string_view fault, std::string_view expected) {
  const std::string line = place.line == 0 ? "" : fmt::format(":{}", place.line);
  const std::string path = place.path.empty() ? "" : one_line(place.path) + ": ";
  return InputError(
      fmt::format("{}{}: {}{}; expected {}", place.file, line, path, one_line(fault, kLongestFault), expected));
}

}  // namespace element
