#ifndef DIAGNOSIS_FINDING_H
#define DIAGNOSIS_FINDING_H

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "element/datastore/path.h"
#include "element/datastore/tree.h"
#include "host/run/commit.h"

namespace diagnosis {

/// What the commit does to a node.
enum class ChangeStatus { unchanged, added, changed, removed };

/// A leaf or a VLAN range of an entry.
struct Detail {
  ChangeStatus status = ChangeStatus::unchanged;
  element::Path path;
  std::optional<std::string> old_value;  ///< leafs with a value
  std::optional<std::string> new_value;
};

/// A list entry that takes part in a conflict. An entry that stays is `changed` where the commit changes a leaf or a
/// range of it, or of the VPN that it belongs to.
struct Party {
  ChangeStatus status = ChangeStatus::unchanged;
  element::Path path;
  std::string group;      ///< "vpls-group campus", with its family; empty outside the VPNs, as the others where they
  std::string vpn;        ///< do not apply
  std::string interface;  ///< access interface, static member, snooping interface, service port or uplink
  std::string neighbor;
  std::vector<Detail> details;  ///< its own leafs and ranges, and the leafs of its VPN
};

/// A part of the change that can be taken back by itself: an added entry with its leafs and ranges, a removed entry
/// with all it held, all changes in place of one entry, or a changed leaf of a VPN that stays.
struct ChangePart {
  ChangeStatus status = ChangeStatus::changed;
  element::Path path;                    ///< the entry, or the leaf
  std::optional<std::string> old_value;  ///< leafs with a value
  std::optional<std::string> new_value;
  std::vector<Detail> details;  ///< an entry that is changed in place: the leafs and ranges that change
};

/// Parts of the change which, all taken back, repair something (a minimal correction set). Closed: with an added entry
/// it holds the added entries below it.
using CorrectionSet = std::vector<ChangePart>;

/// What to take back.
struct Advice {
  std::vector<CorrectionSet> alternatives;  ///< of equal size and rank, any one is enough; none: nothing was found
  std::size_t enough = 0;                   ///< a limit: so many of `choices` are enough, whichever
  std::vector<ChangePart> choices;
  bool is_minimal = false;           ///< asked: no smaller set helps
  bool has_all_alternatives = true;  ///< false: there may be more of the same size
};

enum class RepairKind {
  free_vlans,      ///< VLANs that nobody takes on the party's port
  free_pw_ids,     ///< pw-ids that nobody uses towards the neighbour
  interface_name,  ///< interfaces of the element that are spelled alike
  two_commits      ///< the order alone is wrong: see plan.h
};

/// A change of the candidate with which the finding is gone and no new one comes, asked of the library.
struct Repair {
  RepairKind kind = RepairKind::free_vlans;
  element::Path path;               ///< the leaf, range or entry that is to be changed; empty for two commits
  std::vector<std::string> values;  ///< any one of them
  bool on_all_ports = false;        ///< VLANs: free on every port of the VPN
};

/// A smallest set of entries whose part of the commit draws a message (a minimal unsatisfiable subset).
struct Conflict {
  host::PointVerdict verdict;
  std::vector<std::size_t> parties;   ///< indexes into the finding's parties
  std::vector<std::size_t> triggers;  ///< indexes into its triggers
};

/// Two configurations of operator's nodes.
struct SmallestCommit {
  element::Tree running;
  element::Tree candidate;
};

/// Conflicts of one rule about one resource: a VLAN of a port, a port, a pw-id towards a neighbour, or what the
/// message says.
struct Finding {
  host::PointVerdict verdict;   ///< the device's own, or that of the first conflict
  bool from_device = false;     ///< the device says it on the whole commit; else it would say it next
  std::vector<Party> parties;   ///< what the commit touches first, then the rest, each in schema order
  std::vector<Party> triggers;  ///< they only make the library look at what is in force
  bool is_preexisting = false;  ///< the running configuration has the fault
  std::vector<Conflict> conflicts;
  std::uint64_t enough = 0;          ///< a limit: so many of the parties are too many
  std::uint64_t enough_at_most = 0;  ///< where `enough` is not certain: at least `enough` and at most so many; else 0
  bool is_minimal = true;            ///< false: the search ended before every party was shown to be needed
  SmallestCommit smallest;           ///< of the first conflict
  Advice advice;
  std::vector<Repair> repairs;
  std::string rule;  ///< id of the rule whose message `verdict` is; empty: the rule table does not know it
};

enum class SearchEnd { complete, calls, time, interrupted, contract_violation };

struct Diagnosis {
  std::vector<Finding> findings;  ///< the device's own first, then in schema order of their parties
  Advice advice;                  ///< for all findings together
  std::uint64_t calls = 0;        ///< how often the library was asked about a reduced commit
  SearchEnd end = SearchEnd::complete;
  bool has_all_repairs = true;              ///< false: the search for repairs, which comes last, was ended
  std::vector<std::string> unproven_rules;  ///< ids of rules of which there may be further findings
  std::string contract_violation;           ///< what the library did against its contract, or empty
};

}  // namespace diagnosis

#endif
