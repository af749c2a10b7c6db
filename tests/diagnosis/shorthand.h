#ifndef TESTS_DIAGNOSIS_SHORTHAND_H
#define TESTS_DIAGNOSIS_SHORTHAND_H

#include <string>
#include <vector>

#include "tests/diagnosis/merged_entries.h"
#include "tests/diagnosis/told_advice.h"
#include "tests/diagnosis/told_findings.h"

namespace shorthand {

/// A configuration in short lines, keys as they are, without blanks:
///   vpws GROUP VPN                          vpls the same
///   vpws GROUP VPN PORT whole               vlan N | untagged | range N-N[,N-N]; the VLAN of a VPLS is its own
///   vpws GROUP VPN neighbor ADDRESS PW-ID   or backup-neighbor
///   vpls GROUP VPN dot1q N                  mtu N | tls
///   member VLAN PORT
///   uplink NAME VLAN
///   snooping INSTANCE PORT
///   service-port NUMBER                     NUMBER any | NUMBER vid N
element::Tree tree_of_short(const std::vector<std::string> &lines);

brute_force::Configurations commit_of(const std::vector<std::string> &running,
                                      const std::vector<std::string> &candidate);

/// The lines that both configurations have, and what each has besides.
brute_force::Configurations commit_of(const std::vector<std::string> &both, const std::vector<std::string> &removed,
                                      const std::vector<std::string> &added);

/// "vpws GROUP VPN PORT", "vpws GROUP VPN", "vpls GROUP VPN neighbor ADDRESS", "vpls GROUP VPN dot1q", "member VLAN
/// PORT", "snooping INSTANCE PORT", "service-port NUMBER"; an uplink's two entries are "uplink NAME" and "layer-3
/// NAME".
std::string short_path(const std::string &path);

/// "RULE: PARTY, PARTY", "RULE in force: PARTY, PARTY; looked at for TRIGGER", "RULE, 1 too many: PARTY, PARTY";
/// sorted.
std::vector<std::string> short_findings(const brute_force::ConflictSearch &search);
std::vector<std::string> short_findings(const diagnosis::Diagnosis &diagnosis);

/// "+ADDED and ~CHANGED or -REMOVED", sorted.
std::string short_advice(const std::set<brute_force::PartSet> &alternatives);

}  // namespace shorthand

#endif
