#ifndef DIAGNOSIS_CANDIDATE_EDIT_H
#define DIAGNOSIS_CANDIDATE_EDIT_H

#include <vector>

#include "element/datastore/path.h"
#include "element/datastore/tree.h"

namespace diagnosis {

/// Another value for a leaf of the candidate, or other keys for an entry with all that it holds.
struct CandidateEdit {
  element::Path path;
  std::vector<element::Value> values;  ///< one for a leaf; as many as the list has keys for an entry
};

/// Edits a sorted tree of operator's nodes, which stays sorted. Does nothing where the node is not there. An entry with
/// the new keys must not be there.
void apply(const CandidateEdit &edit, element::Tree &candidate);

}  // namespace diagnosis

#endif
