#ifndef TESTS_ELEMENT_PATCH_WRITER_H
#define TESTS_ELEMENT_PATCH_WRITER_H

#include <string>

#include "element/datastore/tree.h"
#include "element/edit/edit.h"
#include "element/input/configuration_format.h"

namespace element {

/// The JSON merge patch (RFC 7396) that turns the one document into the other, found from the two documents alone.
std::string write_merge_patch(const Tree &before, const Tree &after);

/// The edit as a YANG patch (RFC 8072): one of its edits for each node that is not only on the way to others.
std::string write_yang_patch(const Schema &schema, const Edit &edit, InputFormat format);

}  // namespace element

#endif
