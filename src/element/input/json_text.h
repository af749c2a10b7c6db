#ifndef ELEMENT_INPUT_JSON_TEXT_H
#define ELEMENT_INPUT_JSON_TEXT_H

#include <string>
#include <string_view>

namespace element {

/// Throws InputError, with `origin` for the file's name, where the text is not one well-formed JSON value, nests deeper
/// than any input of the element does, or has an object with two members of one name. Names are compared without
/// their module: "base:vlan" is "vlan". Memory stays small whatever the text.
void require_json(std::string_view text, const std::string &origin);

}  // namespace element

#endif
