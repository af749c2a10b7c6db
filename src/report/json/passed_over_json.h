#ifndef REPORT_JSON_PASSED_OVER_JSON_H
#define REPORT_JSON_PASSED_OVER_JSON_H

#include <nlohmann/json_fwd.hpp>

#include "report/passed_over.h"

namespace report {

/// {"running": {"nodes": 212, "modules": 87}, "candidate": ...}, each with a "list" of the modules of `listed` where it
/// is not null.
nlohmann::ordered_json passed_over_json(const PassedOver &passed_over, const InputSources *listed);

/// Throws nlohmann::ordered_json::exception for another document.
PassedOver read_passed_over(const nlohmann::ordered_json &json);

}  // namespace report

#endif
