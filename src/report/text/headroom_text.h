#ifndef REPORT_TEXT_HEADROOM_TEXT_H
#define REPORT_TEXT_HEADROOM_TEXT_H

#include <ostream>

#include "report/headroom_report.h"

namespace report {

/// The verdict of each element, then a table with a row a limit and a column an element, the messages that stopped a
/// search short of its limit, and the library that decided.
void write_headroom_text(std::ostream &out, const HeadroomReport &report);

}  // namespace report

#endif
