#ifndef CLI_FINDING_H
#define CLI_FINDING_H

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace cli {

/// A line of an input file; line 0: the file alone is known.
struct FilePlace {
  std::string file;
  std::size_t line = 0;
};

/// A node with what the commit does to it and where it stands in the files that hold it.
struct FoundNode {
  std::string standing;  ///< "unchanged", "added", "changed" or "removed"
  std::string path;
  std::optional<std::string> old_value;
  std::optional<std::string> new_value;
  std::optional<FilePlace> running;
  std::optional<FilePlace> candidate;
};

struct FoundParty {
  FoundNode node;
  std::string group;  ///< with its family; empty as the next three where it does not apply
  std::string vpn;
  std::string interface;
  std::string neighbor;
  std::vector<FoundNode> details;
};

/// A message of the library with what draws it, as every output format shows it.
struct Finding {
  std::string rule;  ///< id; empty for a message that the rule table does not know
  bool is_warning = false;
  bool from_device = false;  ///< the device itself says it on this commit; else it hides behind what the device says
  std::string point;
  std::string path;  ///< of the node under validation
  std::string message;
  std::vector<FoundNode> change;    ///< the smallest part of the change that draws it
  std::vector<FoundNode> scaffold;  ///< added above that part, and needed by other parts, too
  std::vector<FoundParty> parties;
  std::uint64_t enough = 0;   ///< a limit: so many parts of `change` are enough to take back; 0: all
  bool complete = true;       ///< false: the budget ended the search
  std::string suppressed_by;  ///< the suppression, as "FILE:LINE: reason"; empty: none
};

}  // namespace cli

#endif
