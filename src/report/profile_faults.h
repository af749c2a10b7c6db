#ifndef REPORT_PROFILE_FAULTS_H
#define REPORT_PROFILE_FAULTS_H

#include <string>
#include <vector>

#include "element/profile/profile.h"
#include "host/run/commit.h"
#include "report/commit_report.h"

namespace report {

/// The limits that the profile's card lacks although a validation point was asked that has them, "card/vpn-max". What
/// the library says of such a limit tells of the profile, not of the element.
std::vector<MissingLimit> missing_limits(const element::Profile &profile, const host::Verdict &verdict);

/// "element.json: card/vpn-max: missing, so that the library allows -1 (rule vpn-limit); expected the card's limit".
/// `file` is the profile.
std::string to_text(const MissingLimit &limit, const std::string &file);

/// Adds to the parties of findings which of their interfaces the profile does not have, with those spelled alike.
void mark_unknown_interfaces(std::vector<Finding> &findings, const element::Profile &profile);

}  // namespace report

#endif
