#include "report/json/change_summary_json.h"

#include <nlohmann/json.hpp>
#include <string>

namespace report {

nlohmann::ordered_json change_summary_json(const ChangeSummary &summary) {
  nlohmann::ordered_json json;
  for (const ObjectKind &kind : kObjectKinds) {
    const ObjectChanges &changes = summary.*kind.changes;
    json[std::string(kind.field)] = {
        {"added", changes.added}, {"changed", changes.changed}, {"removed", changes.removed}};
  }
  json["removed"] = summary.removed();
  return json;
}

}  // namespace report
