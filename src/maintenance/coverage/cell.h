#ifndef MAINTENANCE_COVERAGE_CELL_H
#define MAINTENANCE_COVERAGE_CELL_H

#include <compare>
#include <filesystem>
#include <set>
#include <string>
#include <string_view>

namespace coverage {

/// One thing that a commit can show of the library. Two kinds, told apart by `rule`:
/// a rule that draws its message, as it is or because a platform call fails, or whose point accepts; and what a point
/// answers where a platform call fails.
struct Cell {
  std::string rule;      ///< id; empty: of a failed call
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
