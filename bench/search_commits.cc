#include "bench/search_commits.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

#include "bench/ports.h"
#include "l2vpn/edit.h"

namespace bench {
namespace {

using l2vpn::Configuration;
using l2vpn::Family;

constexpr std::size_t kVpnsAGroup = 100;
constexpr std::size_t kVlansAPort = 1000;
constexpr std::uint32_t kFirstVlan = 2;
constexpr std::uint32_t kFirstVlanAfterChange = 2002;
constexpr std::size_t kPorts = 64;

/// A VPN and where it is attached.
struct Place {
  std::size_t number = 0;  ///< of the VPN, which stands in its name
  std::size_t port = 0;
  std::uint32_t vlan = 0;
};

Place place_of(std::size_t number) {
  return {number, number / kVlansAPort, kFirstVlan + static_cast<std::uint32_t>(number % kVlansAPort)};
}

l2vpn::Vpn vpn_at(Family family, std::string_view group, const Place &place, bool has_neighbor) {
  l2vpn::Vpn vpn;
  vpn.key = {family, fmt::format("{}-{:04}", group, place.number / kVpnsAGroup),
             fmt::format("vpn-{:06}", place.number)};
  l2vpn::Attachment attachment{.interface = port_name(place.port)};
  (family == Family::vpls ? vpn.dot1q : attachment.dot1q) = place.vlan;
  vpn.attachments.push_back(std::move(attachment));
  const auto number = static_cast<std::uint32_t>(place.number);
  if (!has_neighbor) return vpn;
  vpn.neighbors.push_back(
      {fmt::format("10.{}.{}.{}", number / 62500, number / 250 % 250, 1 + number % 250), number + 1});
  return vpn;
}

class Draft {
 public:
  Draft(Family family, bool has_neighbors) : family_(family), has_neighbors_(has_neighbors) {}

  void add_clean(std::size_t vpns) {
    for (std::size_t i = 0; i < vpns; ++i) add("clean", place_of(i));
  }

  /// `conflicts` VPNs more, each on the VLAN of one of so many.
  void add_conflicts(std::size_t conflicts, std::size_t vpns) {
    for (std::size_t i = 0; i < conflicts; ++i) {
      Place place = place_of(i * (vpns / conflicts));
      place.number = vpns + i;
      add("more", place);
    }
  }

  /// The clean VPNs on other VLANs, of which `conflicts` are those of their neighbours.
  void add_changed(std::size_t conflicts, std::size_t vpns) {
    const std::size_t every = vpns / conflicts;
    for (std::size_t i = 0; i < vpns; ++i) {
      Place place = place_of(i);
      const std::size_t slot = i % kVlansAPort + (i % every == 0 ? 1 : 0);
      place.vlan = kFirstVlanAfterChange + static_cast<std::uint32_t>(slot);
      add("clean", place);
    }
  }

  element::Tree tree(const element::Schema &schema) const { return l2vpn::make_tree(schema, configuration_); }

 private:
  void add(std::string_view group, const Place &place) {
    configuration_.vpns.push_back(vpn_at(family_, group, place, has_neighbors_));
  }

  Family family_;
  bool has_neighbors_;
  Configuration configuration_;
};

/// What a kind has, before its scale.
struct Size {
  std::size_t vpns = 0;
  std::size_t conflicts = 0;
  bool is_in_force = false;  ///< the clean VPNs
};

Size size_of(SearchCommitKind kind) {
  switch (kind) {
    case SearchCommitKind::one_conflict_in_64000:
    case SearchCommitKind::pseudowires_beyond_limit:
      return {64'000, 1, true};
    case SearchCommitKind::conflicts_20_in_place:
      return {10'000, 20, true};
    case SearchCommitKind::conflicts_20_in_additions:
    case SearchCommitKind::conflicts_20_in_vpls:
      return {20'000, 20, false};
    case SearchCommitKind::conflicts_1000:
      break;
  }
  return {3'000, 1'000, false};
}

}  // namespace

std::string_view name(SearchCommitKind kind) {
  switch (kind) {
    case SearchCommitKind::one_conflict_in_64000:
      return "one_conflict_in_64000";
    case SearchCommitKind::conflicts_20_in_place:
      return "conflicts_20_in_place";
    case SearchCommitKind::conflicts_20_in_additions:
      return "conflicts_20_in_additions";
    case SearchCommitKind::conflicts_20_in_vpls:
      return "conflicts_20_in_vpls";
    case SearchCommitKind::conflicts_1000:
      return "conflicts_1000";
    case SearchCommitKind::pseudowires_beyond_limit:
      break;
  }
  return "pseudowires_beyond_limit";
}

SearchCommit make_search_commit(const element::Schema &schema, SearchCommitKind kind, std::size_t scale) {
  const Size size = size_of(kind);
  const std::size_t vpns = size.vpns / scale;
  const std::size_t conflicts = std::max<std::size_t>(size.conflicts / scale, 1);
  const bool has_limit = kind == SearchCommitKind::pseudowires_beyond_limit;
  const Family family = kind == SearchCommitKind::conflicts_20_in_vpls ? Family::vpls : Family::vpws;
  Draft before(family, has_limit);
  Draft after(family, has_limit);
  if (size.is_in_force) before.add_clean(vpns);
  if (kind == SearchCommitKind::conflicts_20_in_place) {
    after.add_changed(conflicts, vpns);
  } else {
    after.add_clean(vpns);
    after.add_conflicts(conflicts, vpns);
  }
  return {element_with(kPorts, {}), before.tree(schema), after.tree(schema), has_limit ? 2 : conflicts};
}

}  // namespace bench
