#ifndef REPORT_JSON_FINDING_JSON_H
#define REPORT_JSON_FINDING_JSON_H

#include <nlohmann/json_fwd.hpp>
#include <string_view>

#include "report/commit_report.h"

namespace report {

nlohmann::ordered_json findings_json(const std::vector<Finding> &findings);
nlohmann::ordered_json search_json(const SearchReport &search);

/// "calls", "time", "interrupted" or "contract-violation"; empty for a complete search.
std::string_view end_name(SearchEnd end);

/// Read what the first two above wrote. Throw nlohmann::json::exception or UnknownNameError for anything else.
std::vector<Finding> read_findings(const nlohmann::ordered_json &json);
SearchReport read_search(const nlohmann::ordered_json &json);

}  // namespace report

#endif
