#include "report/value_text.h"

#include <fmt/format.h>

namespace report {

std::string value_text(const element::Node &leaf) {
  if (const auto *value = std::get_if<element::Enumeration>(&leaf.value)) {
    for (const auto &[name, number] : leaf.schema->enumerators) {
      if (number == value->number) return fmt::format("{} ({})", name, number);
    }
  }
  return element::to_text(leaf.value);
}

}  // namespace report
