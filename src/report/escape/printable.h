#ifndef REPORT_ESCAPE_PRINTABLE_H
#define REPORT_ESCAPE_PRINTABLE_H

#include <string>
#include <string_view>

namespace report {

/// The text with every control character written as an escape ("\n", "\x1b"), so that a name in a configuration can
/// neither break a line nor steer a terminal.
std::string printable(std::string_view text);

}  // namespace report

#endif
