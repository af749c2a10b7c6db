#ifndef ELEMENT_INPUT_CONFIGURATION_H
#define ELEMENT_INPUT_CONFIGURATION_H

#include <filesystem>
#include <string>
#include <string_view>

#include "element/datastore/tree.h"
#include "element/input/configuration_text.h"

namespace element {

/// Reads an operator's configuration. The returned tree is sorted, checked against the YANG modules and holds no
/// derived node and no empty container.
///
/// The first character that is not blank decides the format: '<' XML, '{' JSON (as YANG defines both), in UTF-8, with
/// or without byte order mark. XML is a sequence of top-level elements, which one <config> or <data> element of
/// NETCONF's base namespace may enclose; namespace prefixes declared by that element are not known inside it. An empty
/// configuration is {} in JSON and an element without content in XML. A file without content is an error, because it is
/// probably a mistake.
///
/// Throws FileError if the file cannot be read, and InputError if its content is wrong. The message is
/// "FILE:LINE: PATH: what is wrong; expected ..."; line and path are left out where they are not known. The line is the
/// one that the parser had reached.
///
/// Time is linear in the file's size (100 MB with a million entries: about 7 s). Memory is at most ten times that size.
Tree read_configuration(const Schema &schema, const std::filesystem::path &file);

/// A configuration and the text that it was read from. SourceLines finds the lines of nodes in that text.
struct ConfigurationWithText {
  Tree tree;
  ConfigurationText text;
};

/// As read_configuration, for a caller that may need line numbers later. The file is read only once, so it may be a
/// pipe. The text takes as much memory as the file is large.
ConfigurationWithText read_configuration_with_text(const Schema &schema, const std::filesystem::path &file);

/// As read_configuration, from a text. Errors name `origin` as the file.
Tree parse_configuration(const Schema &schema, std::string_view text, const std::string &origin);

}  // namespace element

#endif
