#ifndef REPORT_TEXT_SHOWN_TEXT_H
#define REPORT_TEXT_SHOWN_TEXT_H

#include <ostream>

#include "report/shown_nodes.h"

namespace report {

/// A line a node.
void write_shown_text(std::ostream &out, const ShownNodes &nodes);

}  // namespace report

#endif
