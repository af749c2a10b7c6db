#ifndef HOST_RUN_UNREADABLE_NAMES_H
#define HOST_RUN_UNREADABLE_NAMES_H

#include <string>
#include <vector>

#include "element/datastore/transaction.h"
#include "host/seam/host_session.h"

namespace host {

/// The operator's names of a transaction, running and candidate, that a path cannot carry in plain text: those with a
/// blank, a brace, a quote or a backslash, and those so long that a path of 511 characters cannot hold them whole.
class UnreadableNames {
 public:
  explicit UnreadableNames(const element::Transaction &transaction);

  /// The longest of these names that the path holds, or that the path's end cuts off, and that is none of the keys as
  /// which it was read; empty: none.
  std::string cause_of(const UnreadablePath &path) const;

 private:
  std::vector<std::string> names_;  ///< longest first
};

}  // namespace host

#endif
