#ifndef REPORT_JSON_NODE_JSON_H
#define REPORT_JSON_NODE_JSON_H

#include <nlohmann/json.hpp>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "report/finding.h"

namespace report {

/// A field holds a name that this program never writes there.
class UnknownNameError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

nlohmann::ordered_json place_json(const FilePlace &place);
nlohmann::ordered_json node_json(const NodeReport &node);
nlohmann::ordered_json party_json(const PartyReport &party);

/// Read what the three above wrote. Throw nlohmann::json::exception or UnknownNameError for anything else.
FilePlace read_place(const nlohmann::ordered_json &json);
NodeReport read_node(const nlohmann::ordered_json &json);
PartyReport read_party(const nlohmann::ordered_json &json);

/// The place in the field, if there is one.
std::optional<FilePlace> optional_place(const nlohmann::ordered_json &json, const char *name);

/// What `reader` makes of each item of an array, in their order.
template <typename Item, typename Reader>
std::vector<Item> items(const nlohmann::ordered_json &json, Reader reader) {
  std::vector<Item> result;
  for (const nlohmann::ordered_json &item : json) result.push_back(reader(item));
  return result;
}

}  // namespace report

#endif
