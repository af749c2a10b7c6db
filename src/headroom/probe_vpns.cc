#include <fmt/format.h>

#include "headroom/limit_probe.h"
#include "l2vpn/edit.h"

namespace headroom {

// A VPLS VPN that is only a name triggers no other validation point.
LimitProbe probe_vpns(const CommitContext &context) {
  LimitProbe probe(Limit::vpns, "vpn-limit");
  probe.used = context.derived_entries("/KZ-VPLS-MIB/vplsConfigTable/vplsConfigEntry") +
               context.derived_entries("/KZ-VPWS-MIB/vpwsConfigTable/vpwsConfigEntry");
  probe.strategies.push_back({[&context](std::uint64_t more) {
    TrialCommit trial = context.trial();
    const std::string group = context.spare.group();
    for (std::uint64_t number = 1; number <= more; ++number) {
      l2vpn::ensure_vpn(trial.candidate, {l2vpn::Family::vpls, group, fmt::format("{:08}", number)});
    }
    return trial;
  }});
  return probe;
}

}  // namespace headroom
