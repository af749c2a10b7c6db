#ifndef DIAGNOSIS_MINIMISATION_H
#define DIAGNOSIS_MINIMISATION_H

#include "diagnosis/search_context.h"

namespace diagnosis {

/// A closed set within `entries`, which are closed and draw the message, that draws it, and that no innermost entry can
/// be taken from: what the message names is tried first, then QuickXplain (Junker 2004) on the rest. Where the search
/// ends early, the smallest set so far.
FoundConflict minimise(const SearchContext &context, const NumberSet &entries, std::uint32_t message);

}  // namespace diagnosis

#endif
