#include "element/output/value_text.h"

#include <algorithm>

namespace element {

std::string file_text(const SchemaNode &leaf, const Value &value) {
  const auto *enumeration = std::get_if<Enumeration>(&value);
  if (enumeration == nullptr) return to_text(value);
  const auto found = std::find_if(leaf.enumerators.begin(), leaf.enumerators.end(),
                                  [&](const auto &enumerator) { return enumerator.second == enumeration->number; });
  return found == leaf.enumerators.end() ? to_text(value) : found->first;
}

}  // namespace element
