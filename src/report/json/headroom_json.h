#ifndef REPORT_JSON_HEADROOM_JSON_H
#define REPORT_JSON_HEADROOM_JSON_H

#include <ostream>
#include <string_view>

#include "report/headroom_report.h"
namespace report {

/// The whole report as one JSON document; docs/headroom.schema.json describes it.
void write_headroom_json(std::ostream &out, const HeadroomReport &report);

/// Reads back what write_headroom_json of this very program wrote. Throws std::exception for anything else.
HeadroomReport read_headroom_json(std::string_view text);

}  // namespace report

#endif
