#include <algorithm>
#include <limits>

#include "headroom/limit_probe.h"
#include "l2vpn/edit.h"

namespace headroom {
namespace {

bool has_service_port(const l2vpn::Vpn &vpn) {
  return std::any_of(vpn.attachments.begin(), vpn.attachments.end(), [](const l2vpn::Attachment &attachment) {
    return attachment.interface.starts_with("service-port");
  });
}

FillStrategy raise_mtu(const CommitContext &context, const l2vpn::VpnKey &vpn, std::uint32_t mtu) {
  const auto trial = [&context, vpn, mtu](std::uint64_t more) {
    TrialCommit raised = context.trial();
    l2vpn::set_bridge_mtu(raised.candidate, vpn, static_cast<std::uint32_t>(mtu + more));
    return raised;
  };
  constexpr std::uint64_t largest = std::numeric_limits<std::uint32_t>::max();
  return {trial, std::min(search_ceiling, largest - mtu)};
}

}  // namespace

std::vector<LimitProbe> probe_bridge_mtu(const CommitContext &context) {
  std::vector<LimitProbe> probes;
  for (const l2vpn::Vpn &vpn : context.vpls()) {
    if (!has_service_port(vpn)) continue;
    const std::uint32_t mtu = vpn.bridge_mtu.value_or(0);
    LimitProbe &probe = probes.emplace_back(Limit::bridge_mtu, "service-port-bridge-mtu");
    probe.vpn = to_text(vpn.key);
    probe.named = to_text(vpn.key) + " access-interface ";
    probe.used = mtu;
    probe.strategies.push_back(raise_mtu(context, vpn.key, mtu));
  }
  return probes;
}

}  // namespace headroom
