#ifndef REPORT_TEXT_ROLLBACK_TEXT_H
#define REPORT_TEXT_ROLLBACK_TEXT_H

#include <ostream>

#include "host/run/commit.h"
#include "report/text/text_style.h"

namespace report {

/// One line for the verdict on the way back, after a blank one: "the way back: ", the decision and, of a rejection, its
/// message.
void write_rollback_verdict(std::ostream &out, const host::Verdict &verdict, const TextStyle &style);

}  // namespace report

#endif
