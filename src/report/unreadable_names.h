#ifndef REPORT_UNREADABLE_NAMES_H
#define REPORT_UNREADABLE_NAMES_H

#include <cstddef>
#include <string>
#include <vector>

#include "host/run/commit.h"

namespace report {

/// A name of the operator's because of which the platform could not read questions of the library.
struct UnreadableName {
  std::string name;
  std::size_t questions = 0;        ///< how many; at least 1
  std::vector<std::string> points;  ///< the validation points that asked them, each once, in the order of asking
  std::vector<std::string> rules;  ///< ids of all rules of these points. Each of them may have missed what has the name
};

/// The questions of a commit by name, in the order in which the names came up first.
std::vector<UnreadableName> unreadable_names(const std::vector<host::UnreadableQuestion> &questions);

/// "5 questions of the library could not be read because of the name `a b`: rules X, Y may not have looked at it": one
/// line, safe for a terminal.
std::string to_text(const UnreadableName &unreadable);

}  // namespace report

#endif
