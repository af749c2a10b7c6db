#include "headroom/limit_probe.h"
#include "l2vpn/edit.h"

namespace headroom {
namespace {

constexpr std::uint32_t pw_id = 1;  // any: no two of the added neighbours share an address

/// The VPN that gets the neighbours. A VPWS VPN with another neighbour has the names of its family checked again, a
/// VPLS VPN has not.
l2vpn::VpnKey vpn_for_neighbors(const CommitContext &context) {
  const std::vector<l2vpn::Vpn> &vpns = context.configuration.vpns;
  return vpns.empty() ? context.spare_vpn(l2vpn::Family::vpls) : vpns.front().key;
}

}  // namespace

LimitProbe probe_pseudowires(const CommitContext &context) {
  LimitProbe probe(Limit::pseudowires, "pseudowire-limit");
  probe.used = context.derived_entries("/KZ-PWE3-MIB/pwTable/pwEntry");
  probe.strategies.push_back({[&context](std::uint64_t more) {
    TrialCommit trial = context.trial();
    const l2vpn::VpnKey vpn = vpn_for_neighbors(context);
    for (const element::Ipv4 address : context.spare.addresses(more)) {
      l2vpn::put_neighbor(trial.candidate, vpn, {element::to_text(address), pw_id});
    }
    return trial;
  }});
  return probe;
}

}  // namespace headroom
