#ifndef ELEMENT_CONFIGURATION_H
#define ELEMENT_CONFIGURATION_H

#include <filesystem>
#include <string>
#include <string_view>

#include "element/tree.h"

namespace element {

/// Reads an operator's configuration, XML or JSON by content, type-checked by the modules, into a tree of the
/// operator's nodes alone. Throws InputError, which names the file, the line or path and what was expected.
Tree read_configuration(const Schema &schema, const std::filesystem::path &file);

/// The same from text; `origin` stands for the file's name in errors.
Tree parse_configuration(const Schema &schema, std::string_view text, const std::string &origin);

}  // namespace element

#endif
