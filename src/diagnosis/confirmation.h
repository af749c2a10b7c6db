#ifndef DIAGNOSIS_CONFIRMATION_H
#define DIAGNOSIS_CONFIRMATION_H

#include "diagnosis/search_context.h"

namespace diagnosis {

/// Drops the conflicts that the rest of the commit mends: a conflict stays when its message is still drawn with all
/// entries beside it that are party of no other conflict that stays. All that fail are dropped at once, until none
/// does. The parties of a limit's conflict are all that it counts. Where the search ends before, those stay that were
/// confirmed when they were found.
void drop_mended(const SearchContext &context, FoundConflicts &conflicts);

/// The conflict's message is drawn beside all that may matter to it and is party of no other conflict; `members` are
/// the parties and triggers of the others.
bool is_drawn_beside(const SearchContext &context, const FoundConflict &conflict, const NumberSet &members);

/// The message is drawn when the running configuration's part of the closed set is committed to an empty element.
bool is_in_force(const SearchContext &context, const NumberSet &entries, std::uint32_t message);

/// Any change may make the library look at what is in force; so many are tried.
inline constexpr std::size_t kMostTriggers = 16;

/// What the commit touches beside `core`, likely triggers of what is in force there first: entries of the kind, then
/// one of each kind, two of each, and so on. Of one kind at most kMostTriggers.
std::vector<std::uint32_t> likely_triggers(const SearchContext &context, const NumberSet &core,
                                           const element::SchemaNode *kind);

/// Tells the triggers of a conflict apart, and whether the running configuration has the fault.
void find_triggers(const SearchContext &context, FoundConflict &conflict);

}  // namespace diagnosis

#endif
