#ifndef REPORT_JSON_FINDING_JSON_H
#define REPORT_JSON_FINDING_JSON_H

#include <nlohmann/json_fwd.hpp>
#include <stdexcept>

#include "report/commit_report.h"

namespace report {

/// A field holds a name that this program never writes there.
class UnknownNameError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

nlohmann::ordered_json findings_json(const std::vector<Finding> &findings);
nlohmann::ordered_json search_json(const SearchReport &search);

/// Read what the two above wrote. Throw nlohmann::json::exception or UnknownNameError for anything else.
std::vector<Finding> read_findings(const nlohmann::ordered_json &json);
SearchReport read_search(const nlohmann::ordered_json &json);

}  // namespace report

#endif
