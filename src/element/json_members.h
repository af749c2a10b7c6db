#ifndef ELEMENT_JSON_MEMBERS_H
#define ELEMENT_JSON_MEMBERS_H

#include <cstddef>
#include <optional>
#include <string_view>

namespace element {

/// The place of the first member whose name stands twice in one object, or nothing. Names are compared without their
/// module ("base:config" is "config"). The text must be well-formed JSON.
std::optional<std::size_t> find_repeated_member(std::string_view json);

}  // namespace element

#endif
