#ifndef ELEMENT_PROFILE_INTERFACE_DATA_H
#define ELEMENT_PROFILE_INTERFACE_DATA_H

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace element {

/// An interface as operational data of ietf-interfaces tells it.
struct InterfaceData {
  std::string name;
  std::string type;  ///< identity of iana-if-type without its module; empty: not given
  std::optional<std::int32_t> if_index;
  std::size_t line = 0;  ///< where it begins in its file, from 1
};

/// The interfaces in a file of operational data: those of `interfaces` (RFC 8343) and of `interfaces-state` (RFC 7223)
/// in XML or JSON, in the envelopes of NETCONF and RESTCONF, which configurations may have, or without. Everything else
/// is passed over. An interface that both containers hold is told once, with what either knows of it. Memory grows with
/// the interfaces alone.
///
/// Throws FileError where the file cannot be read, and InputError "FILE:LINE: what is wrong; expected ..." for an
/// interface without a name, one that a container holds twice, and an if-index that is no number of 1..2147483647.
std::vector<InterfaceData> read_interface_data(const std::filesystem::path &file);

/// As read_interface_data, from a text. Errors name `origin` as the file.
std::vector<InterfaceData> parse_interface_data(std::string_view text, const std::string &origin);

}  // namespace element

#endif
