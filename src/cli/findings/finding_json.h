#ifndef CLI_FINDINGS_FINDING_JSON_H
#define CLI_FINDINGS_FINDING_JSON_H

#include <nlohmann/json_fwd.hpp>

#include "cli/findings/decided_commit.h"

namespace cli {

nlohmann::ordered_json findings_json(const std::vector<Finding> &findings);
nlohmann::ordered_json search_json(const SearchAccount &search);

/// What the two wrote. Throw nlohmann::json::exception for what they did not.
std::vector<Finding> read_findings(const nlohmann::ordered_json &json);
SearchAccount read_search(const nlohmann::ordered_json &json);

}  // namespace cli

#endif
