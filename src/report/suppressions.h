#ifndef REPORT_SUPPRESSIONS_H
#define REPORT_SUPPRESSIONS_H

#include <chrono>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "report/finding.h"

namespace report {

/// Faults that are known and borne, as a file lists them, a line each: "RULE PATH [until YYYY-MM-DD] # REASON". PATH is
/// a path as it is printed, where "*" in a name or in keys stands for any text; it fits a conflict one of whose parties
/// it leads to, or a finding by the node under validation where the parties are not known. Blank lines and lines that
/// begin with "#" say nothing. A line with a date holds to the end of that day.
class Suppressions {
 public:
  /// Lines that ended before `today` suppress nothing.
  explicit Suppressions(std::chrono::sys_days today) : today_(today) {}

  /// Adds the lines of a file. Throws element::FileError where the file cannot be read, element::InputError
  /// ("FILE:LINE: ...") for a line that is none, or names a rule that does not exist.
  void read(const std::filesystem::path &file);

  /// The same from text; `origin` stands for the file's name.
  void parse(std::string_view text, const std::string &origin);

  /// Marks with the first line that fits each finding every conflict of which a line fits; of a limit, any of them.
  void apply(std::vector<Finding> &findings);

  /// "FILE:LINE: RULE PATH" of every line that holds and has fitted no finding yet.
  std::vector<std::string> unused() const;

  /// "FILE:LINE: RULE PATH, until YYYY-MM-DD" of every line that holds no more.
  std::vector<std::string> expired() const;

 private:
  struct Line {
    Suppressed suppressed;
    std::string rule;
    std::string path;
    std::optional<std::chrono::sys_days> until;
    bool used = false;
  };

  bool is_over(const Line &line) const { return line.until && *line.until < today_; }

  static Line parse_line(std::string_view text, const FilePlace &place);

  std::chrono::sys_days today_;
  std::vector<Line> lines_;
};

}  // namespace report

#endif
