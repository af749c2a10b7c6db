#ifndef REPORT_JSON_VERDICT_JSON_H
#define REPORT_JSON_VERDICT_JSON_H

#include <nlohmann/json_fwd.hpp>
#include <string>

#include "report/check_report.h"
#include "report/commit_report.h"

namespace report {

/// The verdict on a commit with all that was found out, as a JSON object in one line; docs/verdict.schema.json
/// describes it.
std::string verdict_json(const CheckReport &report);

/// The commit of which such an object tells; `name` is what it is to be called. Throws UnknownNameError, or an
/// exception of the JSON library.
CommitReport read_verdict(const nlohmann::ordered_json &json, const std::string &name);

}  // namespace report

#endif
