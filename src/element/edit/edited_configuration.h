#ifndef ELEMENT_EDIT_EDITED_CONFIGURATION_H
#define ELEMENT_EDIT_EDITED_CONFIGURATION_H

#include <filesystem>
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

}  // namespace element

#endif
