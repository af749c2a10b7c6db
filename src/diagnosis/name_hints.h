#ifndef DIAGNOSIS_NAME_HINTS_H
#define DIAGNOSIS_NAME_HINTS_H

#include "diagnosis/search_context.h"

namespace diagnosis {

/// Which entries of the set a message seems to be about: those whose names or pw-id stand in its text. Guesses, the
/// best first; names that are cut short, or that are words of the message, make them wrong.
std::vector<NumberSet> guess_parties(const Entries &entries, const NumberSet &set, const Message &message);

}  // namespace diagnosis

#endif
