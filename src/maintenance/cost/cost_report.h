#ifndef MAINTENANCE_COST_COST_REPORT_H
#define MAINTENANCE_COST_COST_REPORT_H

#include <optional>
#include <ostream>
#include <string>

#include "maintenance/cost/measurement.h"

namespace cost {

/// What `vpnval cost` found out.
struct CostReport {
  std::string plugin_file;
  std::string build_id;
  CommitCost commit;
  CommitCost doubled;
  std::optional<Latencies> latencies;  ///< nothing: calls alone are told
  std::string latency_source;          ///< "50 us a call", or the file
  std::chrono::seconds time_out{120};
  std::optional<std::chrono::nanoseconds> waited;  ///< of a run in which each call waited for its latency
};

/// The forecast of the whole commit: its calls, and what this machine took for the rest.
std::chrono::nanoseconds forecast(const CostReport &report);

/// Every question is answered in the time that the agent gives.
bool holds_its_time(const CostReport &report);

void write_text(std::ostream &out, const CostReport &report);

/// One JSON document; docs/cost.schema.json describes it.
void write_json(std::ostream &out, const CostReport &report);

}  // namespace cost

#endif
