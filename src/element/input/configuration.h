#ifndef ELEMENT_INPUT_CONFIGURATION_H
#define ELEMENT_INPUT_CONFIGURATION_H

#include <filesystem>
#include <string>
#include <string_view>

#include "element/datastore/tree.h"
#include "element/input/configuration_source.h"
#include "element/input/own_configuration.h"

namespace element {

/// A configuration as a file gives it.
struct ConfigurationFile {
  Tree tree;
  ConfigurationSource source;
};

/// Reads an operator's configuration. The tree is sorted, checked against the YANG modules and holds no derived node
/// and no empty container.
///
/// The first character that is not blank decides the format: '<' XML, '{' JSON (as YANG defines both), in UTF-8, with
/// or without byte order mark. XML is a sequence of top-level elements, JSON one object. A file may be a whole
/// configuration as protocols give it: XML inside <data> or <config> of NETCONF (RFC 6241), of NMDA (RFC 8526) or of no
/// namespace, also inside <rpc-reply>, with the framing of either version of NETCONF or without it; JSON inside
/// "ietf-restconf:data". Nodes of modules that are not the element's are passed over with all that they hold, as are
/// annotations. An empty configuration is {} in JSON and an element without content in XML. A file without content is
/// an error, because it is probably a mistake.
///
/// Throws FileError if the file cannot be read, and InputError if its content is wrong. The message is
/// "FILE:LINE: PATH: what is wrong; expected ..."; line and path are left out where they are not known.
///
/// The file is read once, so it may be a pipe. Time is linear in its size. Memory is linear in what is the element's
/// own, ten to fifteen times its size in the file.
ConfigurationFile read_configuration_file(const Schema &schema, const std::filesystem::path &file,
                                          const ReadOptions &options = {});

/// The tree alone.
Tree read_configuration(const Schema &schema, const std::filesystem::path &file);

/// As read_configuration_file, from a text. Errors name `origin` as the file.
ConfigurationFile parse_configuration_file(const Schema &schema, std::string_view text, const std::string &origin,
                                           const ReadOptions &options = {});

/// The tree alone.
Tree parse_configuration(const Schema &schema, std::string_view text, const std::string &origin);

}  // namespace element

#endif
