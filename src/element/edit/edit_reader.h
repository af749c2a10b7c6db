#ifndef ELEMENT_EDIT_EDIT_READER_H
#define ELEMENT_EDIT_EDIT_READER_H

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "element/edit/edit.h"
#include "element/input/own_configuration.h"

namespace element {

/// What a file of edits holds.
struct EditFile {
  std::vector<Edit> edits;  ///< to be applied in this order
  PassedOver passed_over;
};

/// Reads a file of edits. In XML: NETCONF's <edit-config>, NMDA's <edit-data> or a bare <config>, in an <rpc> or
/// without, several in a row, or the top-level nodes alone, which are merged. In XML or JSON: a YANG patch (RFC 8072).
/// In JSON, unless it is that: a merge patch (RFC 7396) of the configuration.
///
/// Throws FileError if the file cannot be read, and InputError "FILE:LINE: PATH: what is wrong; expected ..." if it
/// holds no edit or one that does not fit the data model.
EditFile read_edits(const Schema &schema, const std::filesystem::path &file, const ReadOptions &options = {});

/// As read_edits, from a text. Errors name `origin` as the file.
EditFile parse_edits(const Schema &schema, std::string_view text, const std::string &origin,
                     const ReadOptions &options = {});

}  // namespace element

#endif
