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
  bool is_enumerated = false;          ///< every closed set of entries can be asked about

  /// What the commit that is asked about does to the entry.
  ChangeStatus status_of(std::uint32_t entry) const {
    return oracle.taken_back().empty() ? diagnosis::status_of(entries, entry)
                                       : changes.status_without(oracle.taken_back(), entry);
  }

  /// The entries that are not there in the commit that is asked about, those in them not told.
  NumberSet gone() const { return changes.gone_without(oracle.taken_back()); }

  /// The entries of the commit that is asked about.
  NumberSet all() const { return present(entries.all()); }

  /// Of these, what may matter to the entries: all of a small commit, of a larger one what is near them.
  NumberSet scope(const NumberSet &set) const { return locality == nullptr ? all() : present(locality->around(set)); }

 private:
  NumberSet present(NumberSet set) const {
    if (oracle.taken_back().empty()) return set;
    return entries.without(set, gone());
  }
};

/// A smallest closed set of entries whose part of the commit draws a message.
struct FoundConflict {
  NumberSet entries;
  std::uint32_t message = 0;
  NumberSet parties;              ///< the innermost entries, triggers excepted; a limit's: all that it counts
  NumberSet triggers;             ///< the innermost entries without which the fault is in force all the same
  std::size_t too_many = 1;       ///< so many of the parties must go, or at least so many
  std::size_t most_too_many = 0;  ///< a limit's where the number is not certain: not more than so many must go
  bool is_preexisting = false;
  bool is_minimal = true;
  bool is_confirmed = false;         ///< asked: drawn beside all that is party of no other conflict known by then
  std::size_t enough_of_any = 0;     ///< a limit's: so many are enough, whichever they are; 0: it was not asked about
  std::vector<NumberSet> exceeding;  ///< a limit's of many: smallest closed sets that exceed it, at least one

  NumberSet innermost() const { return united(parties, triggers); }

  /// So many parties are enough to leave out, whichever they are.
  std::size_t surplus() const { return enough_of_any != 0 ? enough_of_any : too_many; }
};

using FoundConflicts = std::vector<FoundConflict>;

}  // namespace diagnosis

#endif
