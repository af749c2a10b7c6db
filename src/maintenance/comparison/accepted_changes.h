#ifndef MAINTENANCE_COMPARISON_ACCEPTED_CHANGES_H
#define MAINTENANCE_COMPARISON_ACCEPTED_CHANGES_H

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "maintenance/comparison/answer_change.h"

namespace maintenance {

/// Changes that are meant, as a file lists them, a line each: "RULE DIRECTION # REASON", as a comparison prints rule
/// and direction; "*" as a whole word stands for any. Blank lines and lines that begin with "#" say nothing.
class AcceptedChanges {
 public:
  /// Adds the lines of a file. Throws element::FileError, or element::InputError ("FILE:LINE: ...") for a line that is
  /// none or has no reason.
  void read(const std::filesystem::path &file);

  /// The same from text; `origin` stands for the file's name.
  void parse(std::string_view text, const std::string &origin);

  /// The reason of the first line that fits the change, which is a used one from now on; empty where none does.
  std::string reason_of(const AnswerChange &change);

  /// "FILE:LINE: RULE DIRECTION" of every line that has fitted no change yet.
  std::vector<std::string> unused() const;

 private:
  struct Line {
    std::string place;
    AnswerChange change;
    std::string reason;
    bool is_used = false;
  };
  std::vector<Line> lines_;
};

}  // namespace maintenance

#endif
