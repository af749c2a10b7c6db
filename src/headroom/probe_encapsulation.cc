#include <algorithm>

#include "element/datastore/path.h"
#include "headroom/limit_probe.h"
#include "l2vpn/edit.h"

namespace headroom {
namespace {

/// What is added: `on_a_port` ranges on each port, each of `width` VLANs.
struct Packing {
  std::uint32_t width = 1;
  std::uint64_t on_a_port = 1;
};

// A port takes any number of VLANs.
constexpr Packing vlan_packing{1, 4000};
// One range a port does not reach the limit of a port's ranges. A VPLS VPN has few access interfaces, so each of its
// ports gets as many ranges as ports are known to take.
constexpr Packing range_packing{2, 1};
constexpr Packing dense_range_packing{2, 8};

// A bridge domain's own VLAN would count as well, and its interfaces without encapsulation would not agree.
bool can_take_ranges(const l2vpn::Vpn &vpls) {
  return !vpls.dot1q && std::all_of(vpls.attachments.begin(), vpls.attachments.end(),
                                    [](const l2vpn::Attachment &attachment) { return !attachment.ranges.empty(); });
}

// The library looks for the ranges of a VPN at a path without quotes, and finds none if a name needs them.
bool has_plain_names(const l2vpn::Vpn &vpn) {
  return element::quoted_key(vpn.key.group) == vpn.key.group && element::quoted_key(vpn.key.name) == vpn.key.name;
}

l2vpn::Attachment packed_attachment(const std::string &port, const Packing &packing, std::uint64_t count) {
  l2vpn::Attachment attachment{.interface = port};
  for (std::uint64_t i = 0; i < count; ++i) {
    const auto first = static_cast<std::uint32_t>(1 + i * packing.width);
    attachment.ranges.push_back({first, first + packing.width - 1});
  }
  return attachment;
}

FillStrategy add_ranges(const CommitContext &context, const l2vpn::VpnKey &vpn, const Packing &packing,
                        const element::CardLimits &card) {
  return {[&context, vpn, packing, card](std::uint64_t more) {
    const std::uint64_t count = (more + packing.on_a_port - 1) / packing.on_a_port;
    const std::vector<std::string> ports = context.spare.ports(PortKind::ethernet, count);
    TrialCommit trial = context.trial_with_ports(ports);
    trial.profile.card = card;
    std::uint64_t rest = more;
    for (const std::string &port : ports) {
      const std::uint64_t here = std::min(rest, packing.on_a_port);
      l2vpn::put_attachment(trial.candidate, vpn, packed_attachment(port, packing, here));
      rest -= here;
    }
    return trial;
  }};
}

/// A VPWS VPN has any number of access interfaces, a VPLS VPN has not.
std::vector<FillStrategy> strategies_of(const CommitContext &context, const Packing &packing,
                                        const Packing &vpls_packing, const element::CardLimits &card) {
  std::vector<FillStrategy> strategies;
  const auto vpws = std::ranges::find_if(context.vpws(), has_plain_names);
  if (vpws != context.vpws().end()) strategies.push_back(add_ranges(context, vpws->key, packing, card));
  strategies.push_back(add_ranges(context, context.spare_vpn(l2vpn::Family::vpws), packing, card));
  const auto vpls = std::ranges::find_if(context.vpls(), can_take_ranges);
  if (vpls != context.vpls().end()) strategies.push_back(add_ranges(context, vpls->key, vpls_packing, card));
  return strategies;
}

}  // namespace

LimitProbe probe_encapsulation_vlans(const CommitContext &context) {
  LimitProbe probe(Limit::encapsulation_vlans, "encapsulation-vlan-limit");
  probe.strategies = strategies_of(context, vlan_packing, vlan_packing, context.profile.card);
  element::CardLimits card = card_without_encapsulation_limits(context.profile.card);
  card.selective_encapsulation_vlan_entries = context.profile.card.selective_encapsulation_vlan_entries;
  probe.isolated_strategies = strategies_of(context, vlan_packing, vlan_packing, card);
  return probe;
}

// The library counts every range as a VLAN too, and checks the VLANs first.
LimitProbe probe_encapsulation_ranges(const CommitContext &context) {
  LimitProbe probe(Limit::encapsulation_ranges, "encapsulation-range-limit");
  probe.strategies = strategies_of(context, range_packing, dense_range_packing, context.profile.card);
  element::CardLimits card = card_without_encapsulation_limits(context.profile.card);
  card.selective_encapsulation_vlan_ranges = context.profile.card.selective_encapsulation_vlan_ranges;
  probe.isolated_strategies = strategies_of(context, range_packing, dense_range_packing, card);
  return probe;
}

}  // namespace headroom
