#ifndef ELEMENT_PROFILE_H
#define ELEMENT_PROFILE_H

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace element {

/// What the line card's feature model answers; a limit that is absent makes its read fail.
struct CardLimits {
  std::optional<std::uint32_t> vpn_max;
  std::optional<std::uint32_t> access_ports;
  std::optional<std::uint32_t> selective_encapsulation_vlan_entries;
  std::optional<std::uint32_t> selective_encapsulation_vlan_ranges;
};

/// An interface as the identifier manager knows it.
struct Interface {
  std::string name;
  std::uint32_t logical_id = 0;
  std::int32_t ifindex = 0;
};

/// The element that a commit is checked against.
struct Profile {
  CardLimits card;
  std::vector<Interface> interfaces;

  /// The interface of this name, logical identifier or ifindex, or null. Constant time after index().
  const Interface *by_name(const std::string &name) const;
  const Interface *by_logical_id(std::uint32_t id) const;
  const Interface *by_ifindex(std::int32_t ifindex) const;
};

/// Reads a profile file (JSON). Throws InputError, which names the file, the field and what was expected.
Profile read_profile(const std::filesystem::path &file);

}  // namespace element

#endif
