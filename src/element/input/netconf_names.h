#ifndef ELEMENT_INPUT_NETCONF_NAMES_H
#define ELEMENT_INPUT_NETCONF_NAMES_H

#include <string_view>

namespace element {

inline constexpr std::string_view kNetconfNamespace = "urn:ietf:params:xml:ns:netconf:base:1.0";
inline constexpr std::string_view kNmdaNamespace = "urn:ietf:params:xml:ns:yang:ietf-netconf-nmda";
inline constexpr std::string_view kRestconfNamespace = "urn:ietf:params:xml:ns:yang:ietf-restconf";
inline constexpr std::string_view kYangNamespace = "urn:ietf:params:xml:ns:yang:1";
inline constexpr std::string_view kYangPatchNamespace = "urn:ietf:params:xml:ns:yang:ietf-yang-patch";
inline constexpr std::string_view kYangPatchModule = "ietf-yang-patch";
inline constexpr std::string_view kYangPatchMember = "ietf-yang-patch:yang-patch";
inline constexpr std::string_view kRestconfData = "ietf-restconf:data";

/// What is said where a configuration was expected and the file holds operations on one, and what to do instead.
inline constexpr std::string_view kEditGiven = "an edit was given as a configuration";
inline constexpr std::string_view kInsteadOfEdit = "a whole configuration; an edit is given with --edit";

}  // namespace element

#endif
