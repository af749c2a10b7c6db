#ifndef CLI_COMMAND_LINE_BUDGET_H
#define CLI_COMMAND_LINE_BUDGET_H

#include <string_view>

#include "diagnosis/diagnose.h"

namespace cli {

/// Reads "CALLS", "TIMEs" or "CALLS,TIMEs" in whole calls and seconds; the bound that is not named keeps its default.
/// Throws UsageError.
diagnosis::Budget parse_budget(std::string_view text);

/// The budget allows no search at all.
bool is_nothing(const diagnosis::Budget &budget);

}  // namespace cli

#endif
