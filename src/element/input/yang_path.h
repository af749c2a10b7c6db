#ifndef ELEMENT_INPUT_YANG_PATH_H
#define ELEMENT_INPUT_YANG_PATH_H

#include <string_view>

#include "element/datastore/path.h"

namespace element {

/// The path that libyang writes as "/base:config/vlan[id='5']". A list without all its keys in brackets has none in the
/// result. Reading ends at a step that the data model does not have: the result is the path up to there.
Path path_of_parser(const Schema &schema, std::string_view text);

}  // namespace element

#endif
