#ifndef DIAGNOSIS_SEARCH_CONTEXT_H
#define DIAGNOSIS_SEARCH_CONTEXT_H

#include "diagnosis/entries.h"
#include "diagnosis/locality.h"
#include "diagnosis/messages.h"
#include "diagnosis/oracle.h"
#include "diagnosis/revertible_changes.h"

namespace diagnosis {

/// What every step of a search works on. All that is referred to outlives the search.
struct SearchContext {
  const Entries &entries;
  const RevertibleChanges &changes;
  Messages &messages;
  Oracle &oracle;
  const Locality *locality = nullptr;  ///< of a commit of many entries

  /// What may matter to the entries: all of a small commit, of a larger one what is near them.
  NumberSet scope(const NumberSet &set) const { return locality == nullptr ? entries.all() : locality->around(set); }
};

/// A smallest closed set of entries whose part of the commit draws a message.
struct FoundConflict {
  NumberSet entries;
  std::uint32_t message = 0;
  NumberSet parties;         ///< the innermost entries, triggers excepted; a limit's: all that it counts
  NumberSet triggers;        ///< the innermost entries without which the fault is in force all the same
  std::size_t too_many = 1;  ///< so many of the parties must go
  bool is_preexisting = false;
  bool is_minimal = true;

  NumberSet innermost() const { return united(parties, triggers); }
};

using FoundConflicts = std::vector<FoundConflict>;

}  // namespace diagnosis

#endif
