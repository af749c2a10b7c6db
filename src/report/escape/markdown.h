#ifndef REPORT_ESCAPE_MARKDOWN_H
#define REPORT_ESCAPE_MARKDOWN_H

#include <string>
#include <string_view>

namespace report {

/// The text as it stands within a line of Markdown, whatever its bytes: no character of it marks anything up, links,
/// or mentions anybody. Control characters and marks that turn the direction of text become escapes that show ("\x1b",
/// "\u202e"); each byte that is no UTF-8 becomes U+FFFD.
std::string to_markdown(std::string_view text);

}  // namespace report

#endif
