#ifndef CLI_OUTPUT_TEXT_OUTPUT_H
#define CLI_OUTPUT_TEXT_OUTPUT_H

#include <ostream>
#include <vector>

#include "cli/output/paint.h"
#include "cli/output/report.h"

namespace cli {

/// A line a change, "+" added, "-" removed, "~" changed; what belongs to one outermost list entry stands below it.
void write_changes(std::ostream &out, const std::vector<ListedChange> &changes, const Paint &paint);

/// A line a validation point that was asked, the trace if it was wanted, the total, and the library that decided.
void write_verdict(std::ostream &out, const Report &report, const Paint &paint);

}  // namespace cli

#endif
