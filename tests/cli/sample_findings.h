#ifndef TESTS_CLI_SAMPLE_FINDINGS_H
#define TESTS_CLI_SAMPLE_FINDINGS_H

#include <cstddef>
#include <string>

#include "report/check_report.h"
#include "report/commit_report.h"

/// An added VPWS VPN takes the VLAN that a VPLS VPN of the running configuration has on the port: the device rejects.
report::Finding same_dot1q();

/// An access interface that is on an uplink: a warning, hidden behind a rejection.
report::Finding uplink_warning();

/// A card's limit of 4 VPNs with this many VPNs, each of them added.
report::Finding too_many_vpns(std::size_t vpns);

/// A rejection whose every text holds what formats give a meaning to: quotes, angle brackets, "]]>", "::", line breaks,
/// "%0A", an escape sequence, and a character that was cut in two.
report::Finding hostile();
extern const std::string hostile_text;

/// The same finding where no search looked into it.
report::Finding bare(report::Finding finding);

/// The same finding where the running configuration has the fault, and a VPN that is added makes the library look.
report::Finding in_force(report::Finding finding);

/// The JSON document of a rejected commit alone.
std::string single_document(const report::CheckReport &report);

/// A commit "night/42" with these findings, rejected where one of them rejects.
report::CommitReport decided(std::vector<report::Finding> findings);

#endif
