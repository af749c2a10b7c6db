#ifndef CONFIG_VALIDATE_COMN_DAEMON_PATH_FORMAT_H
#define CONFIG_VALIDATE_COMN_DAEMON_PATH_FORMAT_H

#include <string>

/// A configuration path from a printf-style template, cut at 511 characters.
[[gnu::format(printf, 1, 2)]] std::string format_path(const char *format, ...);

/// The path as a format without conversions: every percent sign is doubled, so that a printf-style function that gets
/// no further arguments reads the path as it is. The names in a path are the operator's and may hold percent signs.
std::string as_path_format(const std::string &path);

#endif
