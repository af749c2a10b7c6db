#ifndef ELEMENT_EDIT_APPLY_EDIT_H
#define ELEMENT_EDIT_APPLY_EDIT_H

#include "element/datastore/tree.h"
#include "element/edit/edit.h"

namespace element {

/// The configuration after the edit, by the rules of NETCONF's edit-config: operations take effect in the edit's order,
/// a container without presence is there as long as it holds something, and a node of one case of a choice takes away
/// those of the others. Whether the result fits the data model is not checked. `configuration` is sorted, and so is the
/// result; both share what the edit does not touch.
///
/// Throws InputError "FILE:LINE: PATH: what is wrong; expected ..." for NETCONF's data-exists and data-missing.
Tree edited(const Tree &configuration, const Edit &edit);

}  // namespace element

#endif
