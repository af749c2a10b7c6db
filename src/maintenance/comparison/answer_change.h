#ifndef MAINTENANCE_COMPARISON_ANSWER_CHANGE_H
#define MAINTENANCE_COMPARISON_ANSWER_CHANGE_H

#include <compare>
#include <string>
#include <vector>

#include "maintenance/commits/answer.h"

namespace maintenance {

/// One difference between the answers of two builds, OLD and NEW, to the same commit.
struct AnswerChange {
  /// Id of the rule that NEW's message is of, or OLD's where NEW has none; "library" where a build fails; "trace";
  /// "calls".
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

/// All differences, each once, in the order of the validation points. None where both fail alike or answer the same.
std::vector<AnswerChange> changes_between(const Answer &before, const Answer &after, const CompareOptions &options);

/// What changes for the operator, who is told the first rejection or the warnings: "accepted -> rejected" and the like;
/// "other words" where the decision is the same; "behind the first rejection" where only later points differ.
/// Precondition: there are changes.
std::string verdict_direction(const Answer &before, const Answer &after);

/// The points of both answers that differ, as lines "POINT at PATH: accepted" or "...: rejected [RULE]: TEXT", of the
/// first answer. An answer that failed is one line. With the options, lines of trace and calls.
std::vector<std::string> differing_lines(const Answer &answer, const Answer &other, const CompareOptions &options);

}  // namespace maintenance

#endif
