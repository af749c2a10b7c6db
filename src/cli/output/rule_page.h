#ifndef CLI_OUTPUT_RULE_PAGE_H
#define CLI_OUTPUT_RULE_PAGE_H

#include <string>

#include "rules/rule.h"

namespace cli {

/// A rule's page for a terminal, at most 80 columns wide but for the message, which is one line.
std::string text_page(const rules::Rule &rule);

/// The same page in Markdown, as docs/rules/ID.md: links lead from there into the tree.
std::string markdown_page(const rules::Rule &rule);

/// Every rule, one a line: its id, a gap, its message; "warning: " stands before a warning's.
std::string text_index();

/// The index of the pages in Markdown, as docs/rules/README.md: a table for each validation point.
std::string markdown_index();

}  // namespace cli

#endif
