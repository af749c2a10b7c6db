#ifndef CONFIG_VALIDATE_COMN_PATH_FORMAT_H
#define CONFIG_VALIDATE_COMN_PATH_FORMAT_H

#include <string>

/// A configuration path from a printf-style template, cut at 511 characters.
[[gnu::format(printf, 1, 2)]] std::string format_path(const char *format, ...);

#endif
