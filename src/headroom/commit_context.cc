#include "headroom/commit_context.h"

#include <algorithm>
#include <utility>

namespace headroom {
namespace {

/// The number of VPLS VPNs, which stand before the VPWS VPNs.
std::size_t count_of_vpls(const l2vpn::Configuration &configuration) {
  return static_cast<std::size_t>(
      std::count_if(configuration.vpns.begin(), configuration.vpns.end(),
                    [](const l2vpn::Vpn &vpn) { return vpn.key.family == l2vpn::Family::vpls; }));
}

}  // namespace

CommitContext::CommitContext(const Commit &commit)
    : candidate(commit.candidate),
      profile(commit.profile),
      spare(commit.running, commit.candidate, commit.profile),
      configuration(l2vpn::read_configuration(commit.candidate)),
      transaction_(element::make_transaction(commit.running, commit.candidate, commit.profile)) {
  for (l2vpn::PortClaim &claim : l2vpn::port_claims(configuration)) claims_[claim.port].push_back(std::move(claim));
}

TrialCommit CommitContext::trial_with_ports(const std::vector<std::string> &ports) const {
  return {candidate, with_ports(profile, ports)};
}

std::span<const l2vpn::Vpn> CommitContext::vpls() const {
  return std::span(configuration.vpns).first(count_of_vpls(configuration));
}

std::span<const l2vpn::Vpn> CommitContext::vpws() const {
  return std::span(configuration.vpns).subspan(count_of_vpls(configuration));
}

const std::vector<l2vpn::PortClaim> &CommitContext::claims_on(const std::string &port) const {
  static const std::vector<l2vpn::PortClaim> none;
  const auto found = claims_.find(port);
  return found == claims_.end() ? none : found->second;
}

std::int64_t CommitContext::derived_entries(std::string_view list) const {
  const element::Node *entries = transaction_->candidate.find(list);
  return entries == nullptr ? 0 : static_cast<std::int64_t>(entries->children.size());
}

}  // namespace headroom
