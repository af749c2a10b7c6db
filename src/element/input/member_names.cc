#include "element/input/member_names.h"

#include <fmt/format.h>

#include "element/input/input_fault.h"
#include "element/input/input_text.h"

namespace element {

void MemberNames::add(std::string_view name, std::size_t line, const std::string &file) {
  const auto [first, is_new] = open_.back().try_emplace(std::string(name), line);
  if (is_new) return;
  throw input_fault(
      {file, line},
      fmt::format("member {} is given twice in one object, first on line {}", one_line(name), first->second),
      "it once");
}

}  // namespace element
