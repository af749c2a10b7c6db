#ifndef HEADROOM_REPORT_H
#define HEADROOM_REPORT_H

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "host/run/commit.h"

namespace headroom {

/// A limit that the validation library holds a configuration to.
enum class Limit {
  vpns,                  ///< VPNs of both families on the element
  pseudowires,           ///< neighbours and backup neighbours of both families on the element
  access_interfaces,     ///< of one VPLS VPN
  encapsulation_vlans,   ///< VLANs and ranges of selective encapsulation on the card
  encapsulation_ranges,  ///< ranges of selective encapsulation on the card
  interface_ranges,      ///< ranges of one access interface
  bridge_mtu             ///< of one VPLS VPN with a service port, in bytes
};

/// What a validation point said to a commit.
struct Answer {
  std::string rule;  ///< id of the rule; empty if the rule table does not know the message
  std::string point;
  std::string message;
};

/// Where the search for a limit ended.
enum class LimitState {
  measured,  ///< `left` more are accepted, one more is rejected with the limit's own message
  exceeded,  ///< the candidate has too many already: `left` is negative
  stopped,   ///< another message comes first: after `left` more, or for the candidate itself if `left` is missing
  no_room,   ///< `left` more are accepted, and the configuration has no place for another one
  no_limit   ///< `left` more are accepted, and the search goes no further
};

/// How much of one limit a candidate uses and what is left. A number is missing if no message tells it.
struct LimitUsage {
  Limit limit = Limit::vpns;
  std::string vpn;        ///< "vpls-group campus vpn data"; empty for a limit of the element or the card
  std::string interface;  ///< of a limit of one access interface; else empty
  LimitState state = LimitState::measured;
  std::optional<std::int64_t> used;     ///< by the candidate
  std::optional<std::int64_t> allowed;  ///< negative: the card does not tell its limit
  std::optional<std::int64_t> left;
  std::optional<Answer> stop;  ///< the rejection of one more; missing for no_room and no_limit
};

/// The verdict of one element on a commit, and what the commit leaves of its limits.
struct Measurement {
  host::Decision decision = host::Decision::accepted;
  std::vector<Answer> answers;  ///< the rejection, or the warnings
  std::vector<LimitUsage> usages;
  /// Of the commit and of the trials for its limits. Each name comes with the questions of the first that had it.
  std::vector<host::UnreadableQuestion> unreadable;
};

}  // namespace headroom

#endif
