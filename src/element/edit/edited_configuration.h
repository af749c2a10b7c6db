#ifndef ELEMENT_EDIT_EDITED_CONFIGURATION_H
#define ELEMENT_EDIT_EDITED_CONFIGURATION_H

#include <filesystem>
#include <string>
#include <vector>

#include "element/edit/edit_reader.h"
#include "element/input/configuration.h"

namespace element {

/// The configuration that the edits of `files`, one or more, make of another one, checked against the YANG modules as
/// read_configuration_file checks its own. `before` was read from `file_before`. The lines of the result are those of
/// the last file; its `further` files are the other ones, back to `file_before`.
///
/// Throws what read_edits and edited() throw, and InputError for a result that the data model does not allow.
ConfigurationFile edited_configuration(const ConfigurationFile &before, const std::filesystem::path &file_before,
                                       const std::vector<std::filesystem::path> &files, const ReadOptions &options);

/// The lines of the nodes that the edits of a file name, those that they take away excepted.
SourceLines lines_of(const std::vector<Edit> &edits);

/// Checks what an edit has made against the YANG modules. Throws InputError, at a line of `lines` and with `origin` as
/// the file, for a result that the data model does not allow. Time is linear in the size of the result.
void require_allowed(const Tree &result, const SourceLines &lines, const std::string &origin);

}  // namespace element

#endif
