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
enum class ChangeStatus { unchanged, added, changed, removed };

/// A node with what the commit does to it and where it stands in the files that hold it.
struct NodeReport {
  ChangeStatus status = ChangeStatus::unchanged;
  std::string path;
  std::optional<std::string> old_value;
  std::optional<std::string> new_value;
  std::optional<FilePlace> running;
  std::optional<FilePlace> candidate;
};

struct PartyReport {
  NodeReport node;
  std::string group;  ///< with its family; empty as the next three where it does not apply
  std::string vpn;
  std::string interface;
  std::string neighbor;
  std::vector<NodeReport> details;
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
  bool from_device = false;  ///< the device itself says it on this commit; else it hides behind what the device says
  std::string point;
  std::string path;  ///< of the node under validation
  std::string message;
  std::vector<NodeReport> change;         ///< the smallest part of the change that draws it
  std::vector<NodeReport> prerequisites;  ///< added above that part, and needed by other parts, too
  std::vector<PartyReport> parties;
  std::uint64_t enough = 0;  ///< a limit: so many parts of `change` are enough to take back; 0: all
  bool in_running = false;   ///< the running configuration has the fault: the change only makes the library look
  bool complete = true;      ///< false: the budget ended the search, or there was none
  FilePlace place;  ///< where to look first: what the commit does to the first party, else the candidate's file
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

/// "added", "changed", "removed" or "unchanged".
std::string_view status_name(ChangeStatus status);

}  // namespace report

#endif
