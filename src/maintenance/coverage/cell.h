#ifndef MAINTENANCE_COVERAGE_CELL_H
#define MAINTENANCE_COVERAGE_CELL_H

#include <compare>
#include <filesystem>
#include <set>
#include <string>
#include <string_view>

namespace coverage {

/// One observation of the library that a commit can lead to; a corpus should have a commit for each. Of a rule: it gave
/// its message ("draws"; "draws-on-failure" where a platform call had to fail for it), or its validation point accepted
/// ("passes"). Of a platform call that was made to fail: what the validation point answered then.
struct Cell {
  std::string rule;      ///< id of the rule; empty: the cell is of a failed call
  std::string point;     ///< failed call: the validation point
  std::string step;      ///< failed call: the step of the library that made it
  std::string function;  ///< failed call: the platform function
  std::string use;       ///< failed call: which use of the function by the step: "1st", "2nd" or "later"
  std::string
      outcome;  ///< "draws", "draws-on-failure", "passes"; failed call: "accepted", "warning", "rejected" or "stopped"

  auto operator<=>(const Cell &) const = default;
};

using Cells = std::set<Cell>;

/// A line for a file: "rule pw-id-twice draws", "call vpn_peer_valp add_committing_pws maapi_init_cursor 1st rejected".
std::string to_line(const Cell &cell);

/// What to_line wrote. Throws element::InputError for another text; `origin` is its file and line.
Cell cell_from(std::string_view line, const std::string &origin);

/// A file of such lines; empty ones, and those that begin with #, are passed over. Throws element::FileError and
/// element::InputError.
Cells read_cells(const std::filesystem::path &file);

/// Every rule, drawn and passed. The message of a rule without an example is about a platform call that failed.
Cells rule_cells();

}  // namespace coverage

#endif
