#ifndef REPORT_ESCAPE_UTF8_H
#define REPORT_ESCAPE_UTF8_H

#include <string>
#include <string_view>

namespace report {

/// The text with U+FFFD for each byte that is no UTF-8: the library cuts long names at a number of bytes.
std::string valid_utf8(std::string_view text);

}  // namespace report

#endif
