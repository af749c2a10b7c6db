#ifndef CLI_OUTPUT_JSON_OUTPUT_H
#define CLI_OUTPUT_JSON_OUTPUT_H

#include <ostream>

#include "cli/output/report.h"

namespace cli {

/// Grows when a field goes or changes its meaning; a field that is added leaves it.
inline constexpr int json_schema_version = 1;

/// The whole report as one JSON document; docs/verdict.schema.json describes it.
void write_json(std::ostream &out, const Report &report);

}  // namespace cli

#endif
