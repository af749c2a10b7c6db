#ifndef HEADROOM_COMMIT_CONTEXT_H
#define HEADROOM_COMMIT_CONTEXT_H

#include <cstdint>
#include <map>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "element/datastore/transaction.h"
#include "headroom/measure.h"
#include "headroom/spare_names.h"
#include "headroom/validator.h"
#include "l2vpn/port_claims.h"

namespace headroom {

/// The commit that is measured, read once for all limits. The commit must outlive it.
class CommitContext {
 public:
  /// Throws element::InputError if the profile lacks an interface that a configuration needs.
  explicit CommitContext(const Commit &commit);
  CommitContext(const CommitContext &) = delete;
  CommitContext &operator=(const CommitContext &) = delete;

  /// The candidate without additions, on the element as it is.
  TrialCommit trial() const { return {candidate, profile}; }

  /// The candidate on the element with these ports in addition.
  TrialCommit trial_with_ports(const std::vector<std::string> &ports) const;

  /// The candidate's VPNs of one family in key order.
  std::span<const l2vpn::Vpn> vpls() const;
  std::span<const l2vpn::Vpn> vpws() const;

  /// A VPN that is in neither configuration, in a group of its own.
  l2vpn::VpnKey spare_vpn(l2vpn::Family family) const { return {family, spare.group(), "spare"}; }

  /// The candidate's claims on a port, in the order of l2vpn::port_claims.
  const std::vector<l2vpn::PortClaim> &claims_on(const std::string &port) const;

  /// Number of entries in a list that the element's applications derive from the candidate.
  std::int64_t derived_entries(std::string_view list) const;

  const element::Tree &candidate;
  const element::Profile &profile;
  const SpareNames spare;
  const l2vpn::Configuration configuration;  ///< the candidate's

 private:
  std::unique_ptr<const element::Transaction> transaction_;
  std::map<std::string, std::vector<l2vpn::PortClaim>> claims_;
};

}  // namespace headroom

#endif
