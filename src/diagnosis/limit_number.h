#ifndef DIAGNOSIS_LIMIT_NUMBER_H
#define DIAGNOSIS_LIMIT_NUMBER_H

#include "diagnosis/search_context.h"

namespace diagnosis {

/// The smallest number of parties one of which is in each of the limit's exceeding sets (a minimum hitting set).
/// Precondition: at most kMostMaskedEntries parties, at least one of them in each set.
std::size_t fewest_in_each(const FoundConflict &limit);

/// Corrects how many of a limit's parties are too many. Weights tell it only where nothing hides the limit: what two
/// parties have with each other hides it in each set with both, so that fewer are too many.
///
/// Where the parties may hide it, each set that exceeds the limit by little is asked about, and the fewest parties are
/// counted that are in every one that draws it. Where these sets are too many, or the search has ended, the number is
/// set to what is certain, and `most_too_many` beside it. `conflicts` are all that were found.
void correct_too_many(const SearchContext &context, const FoundConflicts &conflicts, FoundConflict &limit);

}  // namespace diagnosis

#endif
