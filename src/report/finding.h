#ifndef REPORT_FINDING_H
#define REPORT_FINDING_H

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace report {

/// A line of an input file; line 0: the file alone is known.
struct FilePlace {
  std::string file;
  std::size_t line = 0;
};

/// What a commit does to a node.
enum class ChangeStatus {
  unchanged,
  added,
  changed,
  removed,
  in_force  ///< of an audit: there is no change
};

/// A node with what the commit does to it and where it stands in the files that hold it.
struct NodeReport {
  ChangeStatus status = ChangeStatus::unchanged;
  std::string path;
  std::optional<std::string> old_value;
  std::optional<std::string> new_value;
  std::optional<FilePlace> running;
  std::optional<FilePlace> candidate;
};

/// A list entry that takes part in a conflict.
struct PartyReport {
  NodeReport node;
  std::string group;  ///< with its family; empty as the next three where it does not apply
  std::string vpn;
  std::string interface;
  std::string neighbor;
  std::vector<NodeReport> details;  ///< its leafs and ranges
  /// Set where the profile does not have the interface: those that are spelled alike.
  std::optional<std::vector<std::string>> near_interfaces{};
};

/// A part of the change that can be taken back by itself.
struct PartReport {
  NodeReport node;                  ///< the entry, or the leaf
  std::vector<NodeReport> details;  ///< an entry that is changed in place: the leafs and ranges that change
};

/// What to take back.
struct AdviceReport {
  std::vector<std::vector<PartReport>>
      alternatives;          ///< any one is enough; none: nothing was found, or not looked for to the end
  std::uint64_t enough = 0;  ///< a limit: so many of `choices` are enough, whichever
  std::vector<PartReport> choices;
  bool is_minimal = false;           ///< no smaller set helps
  bool has_all_alternatives = true;  ///< false: there may be more of the same size
};

enum class RepairKind { free_vlans, free_pw_ids, interface_name, two_commits };

/// What can be changed in the candidate instead of taking something back.
struct RepairReport {
  RepairKind kind = RepairKind::free_vlans;
  std::string path;  ///< of the leaf, range or entry; empty for two commits
  std::optional<FilePlace> place;
  std::vector<std::string> values;  ///< any one of them
  bool on_all_ports = false;        ///< VLANs: free on every port of the VPN
  std::string command{};            ///< two commits: the command line that makes them
};

/// A smallest set of entries that draws a message.
struct ConflictReport {
  std::string point;
  std::string path;  ///< of the node under validation
  std::string message;
  std::vector<std::size_t> parties;   ///< indexes into the finding's
  std::vector<std::size_t> triggers;  ///< likewise
};

/// A line of a suppression file, with the reason that it gives.
struct Suppressed {
  FilePlace by;
  std::string reason;
};

/// A message of the library with what draws it, as every output format shows it.
struct Finding {
  std::string rule;  ///< id; empty for a message that the rule table does not know
  bool is_warning = false;
  bool from_device = false;  ///< the device itself says it on this commit; else it would say it next
  std::string point;
  std::string path;  ///< of the node under validation
  std::string message;
  FilePlace place;  ///< where to look first: what the commit does to the first party, else the candidate's file
  std::vector<PartyReport> parties;       ///< what the commit touches first
  std::vector<PartyReport> triggers;      ///< they only make the library look at what is in force
  std::vector<ConflictReport> conflicts;  ///< empty: the message was not looked into
  bool is_preexisting = false;            ///< the running configuration has the fault
  bool is_minimal = false;                ///< without any one of the parties the message is gone
  std::uint64_t enough = 0;               ///< a limit: so many of the parties are too many
  std::uint64_t enough_at_most = 0;       ///< where `enough` is only the least, the most; else 0
  AdviceReport advice;
  std::vector<RepairReport> repairs;
  std::optional<Suppressed> suppressed;
};

/// "FILE:LINE", or "FILE" where the line is not known.
std::string to_text(const FilePlace &place);

/// Where to look for a node: in the candidate's file what the commit adds or changes, in the running configuration's
/// what it removes or leaves. Null where that file does not hold it.
const FilePlace *place_of(const NodeReport &node);

/// "vpws-group branches, vpn south, interface gigabit-ethernet-1/1/1"; the path of what belongs to no group.
std::string title_of(const PartyReport &party);

/// What the commit does to a node: "added by this commit", "in the running configuration" ...
std::string status_text(const NodeReport &node);

/// "added", "changed", "removed", "unchanged" or "in-force".
std::string_view status_name(ChangeStatus status);

}  // namespace report

#endif
