#ifndef ELEMENT_EDIT_YANG_PATCH_H
#define ELEMENT_EDIT_YANG_PATCH_H

#include <string>

#include "element/edit/edit_reader.h"
#include "element/edit/json_node.h"
#include "element/edit/xml_node.h"

namespace element {

/// Whether a file's content is a YANG patch (RFC 8072).
bool is_yang_patch(const JsonNode &outermost);
bool is_yang_patch(const XmlNode &outermost);

/// The edits of a YANG patch, in their order. All operations but two are those of NETCONF on the target alone, with
/// nothing done to the nodes on the way to it. The two are insert and move, which are refused: they order the entries
/// of a list, and no list of the data model is ordered by its operator.
///
/// Throws InputError, which names `file`, line, path and the edit's id.
EditFile yang_patch_edits(const Schema &schema, const JsonNode &outermost, const std::string &file,
                          const ReadOptions &options);
EditFile yang_patch_edits(const Schema &schema, const XmlNode &outermost, const std::string &file,
                          const ReadOptions &options);

}  // namespace element

#endif
