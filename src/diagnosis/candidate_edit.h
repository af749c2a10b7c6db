#ifndef DIAGNOSIS_CANDIDATE_EDIT_H
#define DIAGNOSIS_CANDIDATE_EDIT_H

#include <vector>

#include "element/datastore/path.h"
#include "element/datastore/tree.h"

namespace diagnosis {

/// Another value for a leaf of the candidate, other keys for an entry with all that it holds, or another VLAN for a
/// static member, which stands in it.
struct CandidateEdit {
  element::Path path;
  std::vector<element::Value> values;  ///< one for a leaf or a member; as many as the list has keys for an entry
};

/// The path is that of a port in a VLAN of the VLAN manager.
bool is_static_member(const element::Path &path);

/// Edits a sorted tree of operator's nodes, which stays sorted. Does nothing where the node is not there. An entry with
/// the new keys must not be there.
void apply(const CandidateEdit &edit, element::Tree &candidate);

}  // namespace diagnosis

#endif
