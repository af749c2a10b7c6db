#ifndef REPORT_TEXT_EXPLANATION_TEXT_H
#define REPORT_TEXT_EXPLANATION_TEXT_H

#include <ostream>
#include <string>

#include "report/finding.h"
#include "report/text/text_style.h"

namespace report {

/// "rejected [RULE]: MESSAGE", with what suppresses it.
void write_headline(std::ostream &out, const Finding &finding, const TextStyle &style);

/// "+ vpws-group branches, vpn south, interface ge-1: added by this commit, dot1q 5 (candidate.json:12)", a line.
void write_party(std::ostream &out, const PartyReport &party, const TextStyle &style);

/// What is to be done about a finding that was looked into; indented by three, long lists are cut.
void write_to_do(std::ostream &out, const Finding &finding, const TextStyle &style);

/// "in conflict: 1, 2; 1, 3" where a finding has several conflicts: the numbers of the parties at odds. Else empty.
std::string conflicts_line(const Finding &finding);

/// The parties, a line each, what is to be done, and the details; indented by three, long lists are cut.
void write_explanation(std::ostream &out, const Finding &finding, const TextStyle &style);

}  // namespace report

#endif
