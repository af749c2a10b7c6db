#include <algorithm>
#include <set>

#include "headroom/free_ranges.h"
#include "headroom/limit_probe.h"
#include "l2vpn/edit.h"

namespace headroom {
namespace {

using l2vpn::Claimant;
using l2vpn::ClaimKind;
using l2vpn::Family;
using l2vpn::VpnKey;

std::set<std::string> interfaces_in_use(const CommitContext &context) {
  std::set<std::string> names;
  for (const l2vpn::Vpn &vpn : context.configuration.vpns) {
    for (const l2vpn::Attachment &attachment : vpn.attachments) names.insert(attachment.interface);
  }
  return names;
}

/// The first VPN of the family with VLAN ranges on the interface.
std::optional<VpnKey> vpn_with_ranges(const CommitContext &context, const std::string &interface, Family family) {
  const Claimant claimant = family == Family::vpls ? Claimant::vpls : Claimant::vpws;
  for (const l2vpn::PortClaim &claim : context.claims_on(interface)) {
    if (claim.claimant == claimant && claim.kind == ClaimKind::range) return VpnKey{family, claim.group, claim.name};
  }
  return std::nullopt;
}

/// VPNs that can have more ranges on the interface: of each family one that has some, a VPWS VPN that does not use it,
/// a new one.
std::vector<VpnKey> vpns_for_ranges(const CommitContext &context, const std::string &interface) {
  std::vector<VpnKey> vpns;
  for (const Family family : {Family::vpws, Family::vpls}) {
    if (const auto vpn = vpn_with_ranges(context, interface, family)) vpns.push_back(*vpn);
  }
  const auto is_elsewhere = [&interface](const l2vpn::Vpn &vpn) { return vpn.find_attachment(interface) == nullptr; };
  const auto elsewhere = std::ranges::find_if(context.vpws(), is_elsewhere);
  if (elsewhere != context.vpws().end()) vpns.push_back(elsewhere->key);
  vpns.push_back(context.spare_vpn(Family::vpws));
  return vpns;
}

/// The commit with a change to the VPN's access interfaces that adds no range.
TrialCommit trigger_access_check(const CommitContext &context, const VpnKey &key, const element::CardLimits &card) {
  TrialCommit trial = context.trial();
  if (key.family == Family::vpls) {
    const l2vpn::Vpn *vpn = context.configuration.find(key);
    const bool is_one = vpn != nullptr && vpn->bridge_mtu == 1U;
    l2vpn::set_bridge_mtu(trial.candidate, key, is_one ? 2U : 1U);
  } else {
    const std::vector<std::string> port = context.spare.ports(PortKind::ethernet, 1);
    trial.profile = with_ports(context.profile, port);
    l2vpn::put_attachment(trial.candidate, key, {.interface = port.front()});
  }
  trial.profile.card = card;
  return trial;
}

FillStrategy add_ranges(const CommitContext &context, const VpnKey &vpn, const std::string &interface,
                        const element::CardLimits &card) {
  const std::vector<std::uint32_t> starts = free_range_starts(context.claims_on(interface), vpn);
  const auto trial = [&context, vpn, interface, starts, card](std::uint64_t more) {
    TrialCommit filled = context.trial();
    filled.profile.card = card;
    if (more == 0) return filled;
    l2vpn::Attachment attachment{.interface = interface};
    for (std::uint64_t i = 0; i < more; ++i) attachment.ranges.push_back({starts[i], starts[i] + 1});
    l2vpn::put_attachment(filled.candidate, vpn, attachment);
    return filled;
  };
  const auto trigger = [&context, vpn, card] { return trigger_access_check(context, vpn, card); };
  return {trial, std::min<std::uint64_t>(starts.size(), search_ceiling), trigger};
}

}  // namespace

std::vector<LimitProbe> probe_interface_ranges(const CommitContext &context) {
  std::vector<LimitProbe> probes;
  for (const std::string &interface : interfaces_in_use(context)) {
    LimitProbe &probe = probes.emplace_back(Limit::interface_ranges, "encapsulation-interface-range-limit");
    probe.interface = interface;
    probe.named = " access-interface " + interface + " on ";
    for (const VpnKey &vpn : vpns_for_ranges(context, interface)) {
      probe.strategies.push_back(add_ranges(context, vpn, interface, context.profile.card));
      probe.isolated_strategies.push_back(
          add_ranges(context, vpn, interface, card_without_encapsulation_limits(context.profile.card)));
    }
  }
  return probes;
}

}  // namespace headroom
