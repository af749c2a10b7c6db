#ifndef REPORT_TEXT_RULE_PAGE_H
#define REPORT_TEXT_RULE_PAGE_H

#include <string>
#include <vector>

#include "rules/rule.h"

namespace report {

/// A rule's page for a terminal, at most 80 columns wide but for the message, which is one line.
std::string text_page(const rules::Rule &rule);

/// The same page in Markdown. Its links are relative to docs/rules.
std::string markdown_page(const rules::Rule &rule);

/// The rules, one a line: its id, a gap, its message; "warning: " stands before a warning's.
std::string text_index(const std::vector<const rules::Rule *> &rules);

/// The same of every rule.
std::string text_index();

/// An index of rules, or of all, in Markdown, a table for each validation point. Its links are relative to docs/rules.
std::string markdown_index(const std::vector<const rules::Rule *> &rules);
std::string markdown_index();

}  // namespace report

#endif
