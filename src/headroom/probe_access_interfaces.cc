#include "headroom/limit_probe.h"
#include "l2vpn/edit.h"

namespace headroom {
namespace {

/// What an added access interface takes of its port.
enum class Take { vpn_vlan, untagged, own_vlan };

// All interfaces of a VPN are of one kind: that of the first.
PortKind kind_of_ports(const l2vpn::Vpn &vpn) {
  const bool on_service_ports = !vpn.attachments.empty() && vpn.attachments.front().interface.starts_with("service");
  return on_service_ports ? PortKind::service_port : PortKind::ethernet;
}

l2vpn::Attachment attachment_on(const std::string &port, Take take, std::uint32_t vlan) {
  l2vpn::Attachment attachment{.interface = port};
  attachment.untagged = take == Take::untagged;
  if (take == Take::own_vlan) attachment.ranges = {{vlan, vlan}};
  return attachment;
}

FillStrategy add_attachments(const CommitContext &context, const l2vpn::Vpn &vpn, Take take) {
  // A range must not begin at the VLAN of its own bridge domain.
  const std::uint32_t vlan = vpn.dot1q == 1U ? 2 : 1;
  return {[&context, key = vpn.key, kind = kind_of_ports(vpn), take, vlan](std::uint64_t more) {
    const std::vector<std::string> ports = context.spare.ports(kind, more);
    TrialCommit trial = context.trial_with_ports(ports);
    for (const std::string &port : ports) {
      l2vpn::put_attachment(trial.candidate, key, attachment_on(port, take, vlan));
    }
    return trial;
  }};
}

/// The same without the attachments of other VPLS VPNs: the library names only the first VPN that has too many.
FillStrategy add_attachments_alone(const CommitContext &context, const l2vpn::Vpn &vpn, Take take) {
  return {[&context, key = vpn.key, trial = add_attachments(context, vpn, take).trial](std::uint64_t more) {
    TrialCommit alone = trial(more);
    alone.profile.card = card_without_encapsulation_limits(context.profile.card);
    for (const l2vpn::Vpn &other : context.vpls()) {
      if (other.key != key) l2vpn::erase_attachments(alone.candidate, other.key);
    }
    return alone;
  }};
}

}  // namespace

// The library decides whether the VPN's interfaces agree on having an encapsulation, so each way to take something of
// the port is a strategy; the first one that the library lets reach the limit counts.
std::vector<LimitProbe> probe_access_interfaces(const CommitContext &context) {
  std::vector<LimitProbe> probes;
  for (const l2vpn::Vpn &vpn : context.vpls()) {
    LimitProbe &probe = probes.emplace_back(Limit::access_interfaces, "access-interface-limit");
    probe.vpn = to_text(vpn.key);
    probe.used = static_cast<std::int64_t>(vpn.attachments.size());
    for (const Take take : {Take::vpn_vlan, Take::untagged, Take::own_vlan}) {
      probe.strategies.push_back(add_attachments(context, vpn, take));
      probe.isolated_strategies.push_back(add_attachments_alone(context, vpn, take));
    }
  }
  return probes;
}

}  // namespace headroom
