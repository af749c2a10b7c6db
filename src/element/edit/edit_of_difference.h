#ifndef ELEMENT_EDIT_EDIT_OF_DIFFERENCE_H
#define ELEMENT_EDIT_EDIT_OF_DIFFERENCE_H

#include "element/datastore/difference.h"
#include "element/edit/edit.h"

namespace element {

/// An edit that turns the old tree of the difference into the new one. It names operator's nodes alone, merges
/// those on the way, and deletes before it creates, because a node of one case of a choice takes the others away.
Edit edit_of(const Change &difference);

}  // namespace element

#endif
