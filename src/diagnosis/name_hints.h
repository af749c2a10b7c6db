#ifndef DIAGNOSIS_NAME_HINTS_H
#define DIAGNOSIS_NAME_HINTS_H

#include <string_view>

#include "diagnosis/search_context.h"

namespace diagnosis {

/// The text holds the name, and not as a part of a longer one.
bool holds_name(std::string_view text, std::string_view name);

/// Which entries of the set a message seems to be about: those whose names or pw-id stand in its text. Guesses, the
/// best first; names that are cut short, or that are words of the message, make them wrong.
std::vector<NumberSet> guess_parties(const Entries &entries, const NumberSet &set, const Message &message);

}  // namespace diagnosis

#endif
