#include "report/json/change_json.h"

#include <nlohmann/json.hpp>
#include <string_view>

namespace report {
namespace {

std::string_view mark_text(ChangeMark mark) {
  switch (mark) {
    case ChangeMark::added:
      return "added";
    case ChangeMark::removed:
      return "removed";
    case ChangeMark::changed:
      return "changed";
  }
  return "?";
}

}  // namespace

nlohmann::ordered_json change_json(const ListedChange &change) {
  nlohmann::ordered_json json{{"change", mark_text(change.mark)}, {"path", change.path}, {"derived", change.derived}};
  if (change.old_value) json["old"] = *change.old_value;
  if (change.new_value) json["new"] = *change.new_value;
  return json;
}

}  // namespace report
