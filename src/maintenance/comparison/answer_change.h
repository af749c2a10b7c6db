#ifndef MAINTENANCE_COMPARISON_ANSWER_CHANGE_H
#define MAINTENANCE_COMPARISON_ANSWER_CHANGE_H

#include <compare>
#include <string>
#include <vector>

#include "maintenance/commits/answer.h"

namespace maintenance {

/// What became another between the answers of two builds.
struct AnswerChange {
  /// The rule that says something now, else the one that did; "library" where a build fails, "trace" or "calls".
  std::string rule;
  /// Of a rule "accepted->rejected", "rejected->warned" and their like, "text" for other words of the same rule, or
  /// "rejected->rejected:RULE" where another rule of the point says something in its place. Of the library
  /// "answered->died" and the like. Of the trace "lines". Of calls "FUNCTION:more" or "FUNCTION:fewer".
  std::string direction;

  auto operator<=>(const AnswerChange &) const = default;  // NOLINT(modernize-use-nullptr): means the generated code
};

struct CompareOptions {
  bool trace = false;  ///< what the library wrote to its trace
  bool calls = false;  ///< how often it called each platform function, but for those by which it asks for more time
};

/// The changes, each once, in the order of the validation points; where both fail alike, or answer the same, none.
std::vector<AnswerChange> changes_between(const Answer &before, const Answer &after, const CompareOptions &options);

/// What becomes another for the operator, who is told the first rejection or the warnings: "accepted -> rejected" and
/// the like; "other words" for the same decision; "behind the first rejection" where only other questions show it.
/// Precondition: there are changes.
std::string verdict_direction(const Answer &before, const Answer &after);

/// The points of both answers that differ, as lines "POINT at PATH: accepted" or "...: rejected [RULE]: TEXT", of the
/// first answer. An answer that failed is one line. With the options, lines of trace and calls.
std::vector<std::string> differing_lines(const Answer &answer, const Answer &other, const CompareOptions &options);

}  // namespace maintenance

#endif
