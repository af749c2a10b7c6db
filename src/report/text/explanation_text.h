#ifndef REPORT_TEXT_EXPLANATION_TEXT_H
#define REPORT_TEXT_EXPLANATION_TEXT_H

#include <ostream>

#include "report/finding.h"
#include "report/text/text_style.h"

namespace report {

/// "rejected [RULE]: MESSAGE", with what suppresses it.
void write_headline(std::ostream &out, const Finding &finding, const TextStyle &style);

/// The parties, a line each, what is to be done, and the details; indented by three, long lists are cut.
void write_explanation(std::ostream &out, const Finding &finding, const TextStyle &style);

}  // namespace report

#endif
