#ifndef REPORT_ESCAPE_PRINTABLE_H
#define REPORT_ESCAPE_PRINTABLE_H

#include <string>
#include <string_view>

namespace report {

/// The text with every character that element::steers_terminal written as an escape ("\n", "\x1b", "\u202e"), so that a
/// name in a configuration can neither break a line, nor steer a terminal, nor look like another one.
std::string printable(std::string_view text);

}  // namespace report

#endif
