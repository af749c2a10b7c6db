#ifndef REPORT_PATH_PATTERN_H
#define REPORT_PATH_PATTERN_H

#include <string_view>

namespace report {

/// Whether a path leads where a pattern does, step by step: names and keys are compared as texts in which "*" of the
/// pattern stands for any text. Both are paths as they are printed; quotes around keys make no difference.
bool fits_pattern(std::string_view path, std::string_view pattern);

}  // namespace report

#endif
