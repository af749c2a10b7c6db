#ifndef ELEMENT_INPUT_CONFIGURATION_H
#define ELEMENT_INPUT_CONFIGURATION_H

#include <filesystem>
#include <string>
#include <string_view>

#include "element/datastore/tree.h"
#include "element/input/configuration_text.h"

namespace element {

/// Reads an operator's configuration into a tree of the operator's nodes alone, type-checked by the modules.
///
/// The first character that is not blank tells the format: '<' XML, '{' JSON (as YANG defines both), in UTF-8, with or
/// without byte order mark. XML is a row of top-level elements, or one <config> or <data> element of NETCONF's base
/// namespace around them; what it declares in its start tag beside its own name is not seen inside. An empty
/// configuration is {} in JSON and an element without content in XML; a file that holds nothing at all is an error, for
/// it is more often a slip than a wish.
///
/// Containers that hold nothing are left out: they mean nothing. Every name, key and value stands once.
///
/// Throws FileError where the file cannot be read, else InputError: "FILE:LINE: PATH: what is wrong; expected ...".
/// The line is the one up to which the parser had read. A fault that stands at a place of the file has its line, its
/// path or both.
///
/// Time grows with the file (100 MB of entries, a million of them: some 7 s), memory to ten times its size at worst.
Tree read_configuration(const Schema &schema, const std::filesystem::path &file);

/// A configuration and the text that it was read from, which SourceLines finds its lines in.
struct ConfigurationWithText {
  Tree tree;
  ConfigurationText text;
};

/// The same for a caller that may need lines later: the file is read only once, so it may be a pipe. The text takes as
/// much memory as the file is large.
ConfigurationWithText read_configuration_with_text(const Schema &schema, const std::filesystem::path &file);

/// The tree of a text; `origin` stands for the file's name in errors.
Tree parse_configuration(const Schema &schema, std::string_view text, const std::string &origin);

}  // namespace element

#endif
