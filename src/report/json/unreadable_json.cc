#include "report/json/unreadable_json.h"

#include <nlohmann/json.hpp>

#include "report/json/array.h"

namespace report {
namespace {

using nlohmann::ordered_json;

ordered_json name_json(const UnreadableName &name) {
  return {{"name", name.name}, {"questions", name.questions}, {"points", name.points}, {"rules", name.rules}};
}

UnreadableName name_from(const ordered_json &json) {
  return {json.at("name").get<std::string>(), json.at("questions").get<std::size_t>(),
          json.at("points").get<std::vector<std::string>>(), json.at("rules").get<std::vector<std::string>>()};
}

}  // namespace

void write_unreadable(ordered_json &json, const std::vector<UnreadableName> &names) {
  if (!names.empty()) json["unreadable"] = array(names, name_json);
}

std::vector<UnreadableName> read_unreadable(const ordered_json &json) {
  std::vector<UnreadableName> names;
  if (!json.contains("unreadable")) return names;
  for (const ordered_json &entry : json.at("unreadable")) names.push_back(name_from(entry));
  return names;
}

}  // namespace report
