#include "element/input/foreign_nodes.h"

#include <fmt/format.h>

#include "element/input/input_text.h"

namespace element {

std::string foreign_fault(std::string_view name, std::string_view module, InputFormat format) {
  return fmt::format("foreign node {} of {} \"{}\"", one_line(name),
                     format == InputFormat::xml ? "namespace" : "module", one_line(module));
}

}  // namespace element
