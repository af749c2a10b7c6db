#ifndef ELEMENT_INPUT_NETCONF_WRAPPER_H
#define ELEMENT_INPUT_NETCONF_WRAPPER_H

#include <cstddef>
#include <string>
#include <string_view>

namespace element {

/// Where the first XML element begins: past blanks, comments and processing instructions; the text's size when none.
std::size_t first_element(std::string_view xml);

/// Blanks out the tags of a <config> or <data> element of NETCONF's base namespace around the whole text, as a dump of
/// a configuration has it, so that every line keeps its number. Leaves any other text alone, also what is not
/// well-formed: the parser says why. Throws InputError, with `origin` for the file's name, where the element is not
/// the last one.
void blank_netconf_wrapper(std::string &xml, const std::string &origin);

}  // namespace element

#endif
