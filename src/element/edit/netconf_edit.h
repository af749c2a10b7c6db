#ifndef ELEMENT_EDIT_NETCONF_EDIT_H
#define ELEMENT_EDIT_NETCONF_EDIT_H

#include <string>
#include <vector>

#include "element/edit/edit_reader.h"
#include "element/edit/xml_node.h"

namespace element {

/// The edits of a file's outermost elements. Throws InputError, which names `origin` and line.
EditFile netconf_edits(const Schema &schema, const std::vector<XmlNode> &outermost, const std::string &origin,
                       const ReadOptions &options);

}  // namespace element

#endif
