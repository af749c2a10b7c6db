#ifndef ELEMENT_PROFILE_PROFILE_H
#define ELEMENT_PROFILE_PROFILE_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace element {

/// The limits in the feature model of the line card. When the plug-in reads a limit that is absent, the read fails.
struct CardLimits {
  std::optional<std::uint32_t> vpn_max;
  std::optional<std::uint32_t> access_ports;
  std::optional<std::uint32_t> selective_encapsulation_vlan_entries;
  std::optional<std::uint32_t> selective_encapsulation_vlan_ranges;
};

/// The members of a profile's card.
struct LimitField {
  const char *name;
  std::optional<std::uint32_t> CardLimits::*value;
};
inline constexpr std::array<LimitField, 4> kLimitFields{
    {{"vpn-max", &CardLimits::vpn_max},
     {"access-ports", &CardLimits::access_ports},
     {"selective-encapsulation-vlan-entries", &CardLimits::selective_encapsulation_vlan_entries},
     {"selective-encapsulation-vlan-ranges", &CardLimits::selective_encapsulation_vlan_ranges}}};

inline constexpr std::size_t kLongestInterfaceName = 63;  // bytes

/// An interface in the identifier manager.
struct Interface {
  std::string name;              ///< 1 to 63 bytes
  std::uint32_t logical_id = 0;  ///< any value
  std::int32_t ifindex = 0;      ///< at least 1
};

/// The element that a commit is checked against. The interfaces cannot be changed after construction; the limits can.
class Profile {
 public:
  Profile() = default;

  /// Throws InputError, which names the field, if two interfaces have the same name, logical identifier or ifindex.
  Profile(const CardLimits &card_limits, std::vector<Interface> interfaces);

  CardLimits card;

  const std::vector<Interface> &interfaces() const { return interfaces_; }

  /// The interface of this name, logical identifier or ifindex, or null. Constant time; valid while the profile lives.
  const Interface *by_name(const std::string &name) const;
  const Interface *by_logical_id(std::uint32_t id) const;
  const Interface *by_ifindex(std::int32_t ifindex) const;

 private:
  std::vector<Interface> interfaces_;
  std::unordered_map<std::string, std::size_t> names_;
  std::unordered_map<std::uint32_t, std::size_t> logical_ids_;
  std::unordered_map<std::int32_t, std::size_t> ifindexes_;
};

/// Reads a profile file (JSON): {"card": {"vpn-max", "access-ports", "selective-encapsulation-vlan-entries",
/// "selective-encapsulation-vlan-ranges"}, "interfaces": [{"name", "logical-id", "ifindex"}]}. The card and each of its
/// limits may be absent, every other field is required, and unknown fields are errors. Throws FileError if the file
/// cannot be read. Throws InputError if its content is wrong; the message names the file, the field or the line and
/// column, and what was expected.
Profile read_profile(const std::filesystem::path &file);

/// As read_profile, from a text. Errors name `origin` as the file.
Profile parse_profile(std::string_view text, const std::string &origin);

/// Reads a table of cards (JSON): an object with a member for each card, named as the card is, whose value is that of a
/// profile's "card". Throws as read_profile does.
std::map<std::string, CardLimits> read_cards(const std::filesystem::path &file);

}  // namespace element

#endif
