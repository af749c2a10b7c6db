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
  std::string rule;  ///< id of the rule, empty where the rule table does not know the message
  std::string point;
  std::string message;
};

/// How far a search for a limit came.
enum class Standing {
  measured,  ///< `left` more are accepted, one more draws the limit's own message
  exceeded,  ///< there are too many already: `left` is negative
  stopped,   ///< another message comes first, after `left` more, or at once where `left` is missing
  no_room,   ///< `left` more are accepted, and there is no place for another one
  no_limit   ///< `left` more are accepted, and no search goes further
};

/// What is left of one limit. A number is missing where no message tells it.
struct Remainder {
  Limit limit = Limit::vpns;
  std::string vpn;        ///< "vpls-group campus vpn data"; empty where the limit is of no VPN
  std::string interface;  ///< empty where the limit is of no access interface
  Standing standing = Standing::measured;
  std::optional<std::int64_t> used;     ///< by the candidate
  std::optional<std::int64_t> allowed;  ///< negative: the card does not tell its limit
  std::optional<std::int64_t> left;
  std::optional<Answer> stop;  ///< the message that one more draws; missing for no_room and no_limit
};

/// What an element makes of a commit.
struct Measurement {
  host::Decision decision = host::Decision::accepted;
  std::vector<Answer> answers;  ///< the rejection or the warnings, as the element gives them
  std::vector<Remainder> remainders;
};

}  // namespace headroom

#endif
