#ifndef TESTS_DIAGNOSIS_CONFLICTS_H
#define TESTS_DIAGNOSIS_CONFLICTS_H

#include <cstddef>
#include <cstdint>
#include <set>
#include <string>
#include <unordered_map>
#include <vector>

#include "tests/diagnosis/merged_entries.h"
#include "tests/diagnosis/message.h"

namespace brute_force {

/// What the library says about a commit, every point asked.
std::set<Message> answers(const Configurations &commit);

/// A minimal set of entries whose part of the commit draws the message.
struct Conflict {
  Message message;
  EntrySet set = 0;       ///< closed; of a rule that counts or lists: all that it does, and what that needs
  EntrySet parties = 0;   ///< the innermost of the set without the triggers
  EntrySet triggers = 0;  ///< only make the library look at what is in force
  bool is_in_force = false;
  std::vector<EntrySet> minimal{};  ///< of a rule that counts: the minimal sets
  std::size_t enough = 0;  ///< of a rule that counts: so many are to be left out, so that no minimal set is left

  EntrySet members() const { return parties | triggers; }
};

/// Asks the library about every closed set of the commit's entries.
class ConflictSearch {
 public:
  /// The configurations must outlive the search.
  explicit ConflictSearch(const Configurations &commit);

  const MergedEntries &entries() const { return entries_; }

  /// All conflicts that no other entry mends. What differs in the triggers only is one conflict; so is all that a rule
  /// counts where it shares parties, and all that it lists for one VPN.
  const std::vector<Conflict> &conflicts() const { return conflicts_; }

  const std::set<Message> &answers_about(EntrySet set);

 private:
  void ask_about_all();
  std::vector<Conflict> minimal_conflicts();
  Conflict with_triggers(const Message &message, EntrySet set) const;
  void take_triggers_out(Conflict &conflict) const;
  bool is_drawn_by_what_is_in_force(const Message &message, EntrySet set) const;
  void drop_mended();
  bool is_mended(const Conflict &conflict);

  const Configurations &commit_;
  MergedEntries entries_;
  std::unordered_map<EntrySet, std::set<Message>> answers_;
  std::vector<Conflict> conflicts_;
};

}  // namespace brute_force

#endif
