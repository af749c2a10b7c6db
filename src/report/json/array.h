#ifndef REPORT_JSON_ARRAY_H
#define REPORT_JSON_ARRAY_H

#include <nlohmann/json.hpp>

namespace report {

/// A JSON array of what `writer` makes of each item, in their order.
template <typename Items, typename Writer>
nlohmann::ordered_json array(const Items &items, Writer writer) {
  nlohmann::ordered_json json = nlohmann::ordered_json::array();
  for (const auto &item : items) json.push_back(writer(item));
  return json;
}

}  // namespace report

#endif
