#ifndef ELEMENT_INPUT_NETCONF_WRAPPER_H
#define ELEMENT_INPUT_NETCONF_WRAPPER_H

#include <cstddef>
#include <string>
#include <string_view>

namespace element {

/// The offset of the first XML element, after blanks, comments and processing instructions; the text's size if there is
/// no element.
std::size_t first_element(std::string_view xml);

/// Overwrites with blanks the start and end tag of a <config> or <data> element of NETCONF's base namespace that
/// encloses the whole configuration; every line keeps its number. Other texts, also those that are not well-formed,
/// stay as they are. Throws InputError, which names `origin` as the file, if another element follows the enclosing one.
void blank_netconf_wrapper(std::string &xml, const std::string &origin);

}  // namespace element

#endif
