#ifndef RULES_PAGE_READER_H
#define RULES_PAGE_READER_H

#include <stdexcept>
#include <string_view>

#include "rules/rule.h"

namespace rules {

/// A page of docs/rules that has not the form of one. A defect of the program, not of the user's input. what() names
/// file and line, and what was expected there.
struct PageError : std::logic_error {
  using std::logic_error::logic_error;
};

/// Reads the page docs/rules/ID.md: a header between two lines `---`, a field a line, in any order; then three parts,
/// each a heading and one paragraph, whose lines are joined with blanks. docs/rules/README.md shows the form and says
/// what the fields mean. Throws PageError if a field or a part is missing, unknown, given twice or malformed.
Rule read_page(std::string_view id, std::string_view text);

}  // namespace rules

#endif
