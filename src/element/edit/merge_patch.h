#ifndef ELEMENT_EDIT_MERGE_PATCH_H
#define ELEMENT_EDIT_MERGE_PATCH_H

#include <string>

#include "element/edit/edit_reader.h"
#include "element/edit/json_node.h"

namespace element {

/// The edit of a JSON merge patch (RFC 7396) of a configuration, which may stand inside "ietf-restconf:data". Throws
/// InputError, which names `file`, line and path.
EditFile merge_patch_edit(const Schema &schema, const JsonNode &patch, const std::string &file,
                          const ReadOptions &options);

}  // namespace element

#endif
