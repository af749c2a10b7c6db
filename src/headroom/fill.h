#ifndef HEADROOM_FILL_H
#define HEADROOM_FILL_H

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "headroom/configured_vpns.h"
#include "headroom/judge.h"
#include "headroom/measure.h"
#include "headroom/report.h"
#include "headroom/spare_names.h"

namespace headroom {

/// A commit as those see it who add to its candidate.
struct Site {
  /// Throws element::InputError where the profile lacks an interface that a configuration needs.
  explicit Site(const Commit &commit);

  /// Entries of a list that the element's applications derive from the candidate.
  std::int64_t derived_entries(std::string_view list) const;

  /// The candidate on the element as it is, to add to.
  Load load() const { return {candidate, profile}; }

  /// A VPN in a group of its own, to add.
  Vpn spare_vpn(Family family) const { return {family, spare.group(), "spare", nullptr}; }

  const element::Tree &candidate;
  const element::Profile &profile;
  SpareNames spare;
  std::unique_ptr<const element::Transaction> transaction;
  std::vector<Vpn> vpls;
  std::vector<Vpn> vpws;
};

/// The card without an end of selective encapsulation.
element::CardLimits card_of_endless_vlans(const element::CardLimits &card);

/// One way to use up a limit.
struct Way {
  std::function<Load(std::uint64_t more)> load;  ///< the commit with so many more in it
  std::uint64_t room = search_ceiling;           ///< the most that it can add
  /// The commit with a change that makes the library look at the limit and adds nothing to it; for a limit whose
  /// message does not tell how far it is exceeded.
  std::function<Load()> touch{};
};

/// A limit of a commit and the ways to use it up. Valid as long as the site.
struct Fill {
  Fill(Limit which, std::string_view rule_id) : limit(which), rule(rule_id) {}

  Limit limit;
  std::string_view rule;  ///< id of the rule that draws the limit
  std::string vpn;
  std::string interface;
  std::string named;                 ///< what tells its message from the rule's message for another VPN or interface
  std::optional<std::int64_t> used;  ///< where it can be counted without knowing the rule
  std::vector<Way> ways;             ///< tried in this order until one leads to the limit
  /// Ways without what may come before the limit, for where it does: what is said about this limit of the commits to
  /// which they lead is true of the whole one.
  std::vector<Way> unhindered;
};

// The limits of a commit. What is added meets nothing that is configured; it goes into VPNs that are there where it
// can, so that it takes no other limit's room.

Fill fill_of_vpns(const Site &site);
Fill fill_of_pseudowires(const Site &site);
/// One for each VPLS VPN.
std::vector<Fill> fills_of_access_interfaces(const Site &site);
Fill fill_of_encapsulation_vlans(const Site &site);
Fill fill_of_encapsulation_ranges(const Site &site);
/// One for each interface that a VPN uses.
std::vector<Fill> fills_of_interface_ranges(const Site &site);
/// One for each VPLS VPN with a service port; a VPN without an MTU counts as one with MTU 0.
std::vector<Fill> fills_of_bridge_mtu(const Site &site);

}  // namespace headroom

#endif
