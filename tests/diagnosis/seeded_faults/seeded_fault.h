#ifndef TESTS_DIAGNOSIS_SEEDED_FAULTS_SEEDED_FAULT_H
#define TESTS_DIAGNOSIS_SEEDED_FAULTS_SEEDED_FAULT_H

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "diagnosis/finding.h"
#include "tests/diagnosis/seeded_faults/network.h"

namespace seeded {

struct ExpectedParty {
  std::string path;
  diagnosis::ChangeStatus status = diagnosis::ChangeStatus::unchanged;
};

diagnosis::ChangeStatus status_of(Arrival arrival);

/// What was seeded, as the diagnosis must name it.
struct SeededFault {
  std::string rule;
  std::optional<std::string> text;     ///< nothing where its numbers depend on all else that is seeded
  std::vector<ExpectedParty> parties;  ///< in any order; of a limit none, for there it is counted
  std::vector<SeededFault> besides{};  ///< what some of the parties draw as well
};

/// Writes one fault into a commit.
using SeedFault = SeededFault (*)(Draft &, NamePool &);

struct FaultKind {
  std::string_view rule;
  SeedFault seed;
};

/// Every kind of fault that a commit can have, one for each message. Limits that count what others seed come last,
/// that of the VPNs behind all.
const std::vector<FaultKind> &fault_kinds();

std::vector<FaultKind> name_faults();
std::vector<FaultKind> pseudowire_faults();
std::vector<FaultKind> access_faults();
std::vector<FaultKind> untagged_and_range_faults();
std::vector<FaultKind> port_faults();
std::vector<FaultKind> service_port_faults();
std::vector<FaultKind> member_faults();
std::vector<FaultKind> warning_faults();
std::vector<FaultKind> limit_faults();

/// Whether the two hide each other by what they are, so that no commit shows both.
bool exclude_each_other(std::string_view rule, std::string_view other_rule);

/// Two VPNs that want the same of one port.
struct ConflictingPair {
  Vpn one;
  Vpn other;
  std::string port;
  Arrival arrival_of_one = Arrival::added;
  Arrival arrival_of_other = Arrival::added;

  std::vector<ExpectedParty> parties() const;

  /// As messages name them: the library takes VPWS before VPLS, and each family in the order of its names; a conflict
  /// is found when the later one is taken.
  const Vpn &later() const;
  const Vpn &earlier() const;
};

/// What a static member draws that is added to a VLAN, or to the port, of this VPN: it is looked at, too.
SeededFault member_in_vlan(const Vpn &vpn, Arrival arrival_of_vpn, const std::string &port, std::uint16_t vlan);
SeededFault member_on_port(const Vpn &vpn, Arrival arrival_of_vpn, const std::string &port, std::uint16_t vlan);

/// Of any families and arrivals; the commit touches at least one of them.
ConflictingPair draw_conflicting_pair(NamePool &names);

}  // namespace seeded

#endif
