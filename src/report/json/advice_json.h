#ifndef REPORT_JSON_ADVICE_JSON_H
#define REPORT_JSON_ADVICE_JSON_H

#include <nlohmann/json_fwd.hpp>

#include "report/finding.h"

namespace report {

nlohmann::ordered_json advice_json(const AdviceReport &advice);
nlohmann::ordered_json repair_json(const RepairReport &repair);

/// Read what the two above wrote. Throw nlohmann::json::exception or UnknownNameError for anything else.
AdviceReport read_advice(const nlohmann::ordered_json &json);
RepairReport read_repair(const nlohmann::ordered_json &json);

}  // namespace report

#endif
