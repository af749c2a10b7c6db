#ifndef VLAN_MAP_MARKUP_H
#define VLAN_MAP_MARKUP_H

#include <string>
#include <string_view>

namespace vlan_map {

/// The text as content or quoted attribute value of XML and HTML alike, whatever its bytes: markup characters as
/// references; control characters, those that turn the direction of text and those that XML does not have as an escape
/// that shows ("\x01", "\u202e"); bytes that are not UTF-8 as U+FFFD.
std::string to_markup(std::string_view text);

}  // namespace vlan_map

#endif
