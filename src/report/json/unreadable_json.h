#ifndef REPORT_JSON_UNREADABLE_JSON_H
#define REPORT_JSON_UNREADABLE_JSON_H

#include <nlohmann/json_fwd.hpp>
#include <vector>

#include "report/unreadable_names.h"

namespace report {

/// Sets the field "unreadable" of a document's object; none where there are no such names.
void write_unreadable(nlohmann::ordered_json &json, const std::vector<UnreadableName> &names);

/// What write_unreadable has set. Throws a JSON exception if a field is missing or of another type.
std::vector<UnreadableName> read_unreadable(const nlohmann::ordered_json &json);

}  // namespace report

#endif
