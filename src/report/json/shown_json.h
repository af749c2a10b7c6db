#ifndef REPORT_JSON_SHOWN_JSON_H
#define REPORT_JSON_SHOWN_JSON_H

#include <ostream>

#include "report/shown_nodes.h"

namespace report {

/// One JSON document: schema-version, program and nodes.
void write_shown_json(std::ostream &out, const ShownNodes &nodes);

}  // namespace report

#endif
