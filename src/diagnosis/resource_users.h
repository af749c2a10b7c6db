#ifndef DIAGNOSIS_RESOURCE_USERS_H
#define DIAGNOSIS_RESOURCE_USERS_H

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "diagnosis/entries.h"
#include "diagnosis/revertible_changes.h"
#include "l2vpn/port_claims.h"

namespace diagnosis {

/// Pw-ids that neighbours and backup neighbours use towards one address.
struct PwIds {
  std::multiset<std::uint32_t> candidate;
  std::set<std::uint32_t> running;
};

/// Who uses the ports and neighbours of a commit. What is read is kept.
class ResourceUsers {
 public:
  /// All must outlive this.
  ResourceUsers(const Entries &entries, const RevertibleChanges &changes) : entries_(entries), changes_(changes) {}

  /// Attachments and static members of the port, in either configuration.
  NumberSet entries_on(const std::string &port) const;

  /// What these take of the port in the candidate configuration.
  const std::vector<l2vpn::PortClaim> &claims_on(const std::string &port);

  /// Layer-3 interfaces of the VLAN, in either configuration, with the LDP interfaces of their names.
  NumberSet uplinks_in(std::uint32_t vlan) const;

  const PwIds &pw_ids_towards(const std::string &address);

  /// The candidate's VPN that the entry stands in, with all that it holds; null where it stands in none.
  const l2vpn::Vpn *vpn_around(std::uint32_t entry);

 private:
  NumberSet entries_towards(const std::string &address) const;
  l2vpn::Configuration candidate_of(const NumberSet &entries) const;

  const Entries &entries_;
  const RevertibleChanges &changes_;
  std::map<std::string, std::vector<l2vpn::PortClaim>> claims_;
  std::map<std::string, PwIds> pw_ids_;
  std::map<std::uint32_t, l2vpn::Configuration> vpns_;
};

}  // namespace diagnosis

#endif
