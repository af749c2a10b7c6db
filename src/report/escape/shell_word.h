#ifndef REPORT_ESCAPE_SHELL_WORD_H
#define REPORT_ESCAPE_SHELL_WORD_H

#include <string>
#include <string_view>

namespace report {

/// The text as one word of a shell's command line, quoted where it must be. Text that would steer a terminal becomes
/// $'...' with escapes, which bash and zsh read; everything else is read by any POSIX shell.
std::string shell_word(std::string_view text);

}  // namespace report

#endif
