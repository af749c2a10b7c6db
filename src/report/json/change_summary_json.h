#ifndef REPORT_JSON_CHANGE_SUMMARY_JSON_H
#define REPORT_JSON_CHANGE_SUMMARY_JSON_H

#include <nlohmann/json_fwd.hpp>

#include "report/change_summary.h"

namespace report {

/// {"vpns": {"added": 1, "changed": 0, "removed": 0}, "attachments": ..., "neighbors": ..., "members": ..., "removed":
/// 0}; "removed" is that of all kinds.
nlohmann::ordered_json change_summary_json(const ChangeSummary &summary);

}  // namespace report

#endif
