#ifndef ELEMENT_INPUT_JSON_TEXT_H
#define ELEMENT_INPUT_JSON_TEXT_H

#include <string>
#include <string_view>

namespace element {

/// Throws InputError, which names `origin` as the file, if the text is not exactly one well-formed JSON value as
/// read_json takes it, or has an object with two members of the same name. No document is built in memory.
void require_json(std::string_view text, const std::string &origin);

}  // namespace element

#endif
