#ifndef HEADROOM_LIMIT_PROBE_H
#define HEADROOM_LIMIT_PROBE_H

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "headroom/commit_context.h"
#include "headroom/report.h"
#include "headroom/validator.h"

namespace headroom {

/// One way to use up a limit.
struct FillStrategy {
  std::function<TrialCommit(std::uint64_t more)> trial;  ///< the commit with `more` of what the limit counts
  std::uint64_t room = search_ceiling;                   ///< the largest `more`
  /// The commit with a change that makes the library look at the limit and adds nothing that it counts. Set for limits
  /// whose message does not tell by how much they are exceeded.
  std::function<TrialCommit()> trigger{};
};

/// How to find out what is left of one limit. Valid as long as the commit context.
struct LimitProbe {
  LimitProbe(Limit which, std::string_view rule_id) : limit(which), rule(rule_id) {}

  Limit limit;
  std::string_view rule;  ///< id of the rule that enforces the limit
  std::string vpn;
  std::string interface;
  std::string named;                     ///< part of the message that names the VPN or interface of this limit
  std::optional<std::int64_t> used;      ///< by the candidate, if it can be counted without knowing the rule
  std::vector<FillStrategy> strategies;  ///< tried in this order until one reaches the limit
  /// Strategies on a card without other limits, or beside no other VPN. Used when another limit is hit first; what they
  /// show about this limit holds for the real card.
  std::vector<FillStrategy> isolated_strategies;
};

/// The card with as many VLANs and ranges of selective encapsulation as the library can compare.
element::CardLimits card_without_encapsulation_limits(const element::CardLimits &card);

// One function a kind of limit. What a strategy adds conflicts with nothing in the configuration. It goes into VPNs of
// the candidate if it can, so that it uses up no other limit.

LimitProbe probe_vpns(const CommitContext &context);
LimitProbe probe_pseudowires(const CommitContext &context);
/// One for each VPLS VPN.
std::vector<LimitProbe> probe_access_interfaces(const CommitContext &context);
LimitProbe probe_encapsulation_vlans(const CommitContext &context);
LimitProbe probe_encapsulation_ranges(const CommitContext &context);
/// One for each interface that a VPN uses.
std::vector<LimitProbe> probe_interface_ranges(const CommitContext &context);
/// One for each VPLS VPN with a service port; a VPN without an MTU counts as one with MTU 0.
std::vector<LimitProbe> probe_bridge_mtu(const CommitContext &context);

}  // namespace headroom

#endif
