#ifndef REPORT_ESCAPE_MARKUP_H
#define REPORT_ESCAPE_MARKUP_H

#include <string>
#include <string_view>

namespace report {

/// The text as content or quoted attribute value of XML and HTML, whatever its bytes. The markup characters of `marked`
/// become references; content and values in double quotes need no `'`. Control characters, marks that turn the
/// direction of text and characters that XML does not have become escapes that show ("\x01", "\u202e"). Each byte that
/// is no UTF-8 becomes U+FFFD.
std::string to_markup(std::string_view text, std::string_view marked = "&<>\"'");

}  // namespace report

#endif
