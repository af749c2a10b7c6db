#ifndef REPORT_SUPPRESSIONS_H
#define REPORT_SUPPRESSIONS_H

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "report/finding.h"

namespace report {

/// Faults that are known and borne, as a file lists them, a line each: "RULE PATH # REASON". PATH is a path as it is
/// printed, where "*" in a name or in keys stands for any text; it fits a conflict one of whose parties it leads to, or
/// a finding by the node under validation where the parties are not known. Blank lines and lines that begin with "#"
/// say nothing.
class Suppressions {
 public:
  Suppressions() = default;

  /// Throws element::FileError where the file cannot be read, element::InputError ("FILE:LINE: ...") for a line that is
  /// none, or names a rule that does not exist.
  static Suppressions read(const std::filesystem::path &file);

  /// The same from text; `origin` stands for the file's name.
  static Suppressions parse(std::string_view text, const std::string &origin);

  /// Marks with the first line that fits each finding every conflict of which a line fits; of a limit, any of them.
  void apply(std::vector<Finding> &findings);

  /// "FILE:LINE: RULE PATH" of every line that has fitted no finding yet.
  std::vector<std::string> unused() const;

 private:
  struct Line {
    Suppressed suppressed;
    std::string rule;
    std::string path;
    bool used = false;
  };

  static Line parse_line(std::string_view text, const FilePlace &place);

  std::vector<Line> lines_;
};

}  // namespace report

#endif
