#ifndef HOST_SEAM_FORMATTED_TEXT_H
#define HOST_SEAM_FORMATTED_TEXT_H

#include <cstdarg>
#include <string>

namespace host {

/// What vsnprintf makes of a format, at its full length.
[[gnu::format(printf, 1, 0)]] std::string formatted_text(const char *format, std::va_list arguments);

}  // namespace host

#endif
