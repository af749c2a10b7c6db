#ifndef REPORT_CHANGE_LIST_H
#define REPORT_CHANGE_LIST_H

#include <optional>
#include <string>
#include <vector>

#include "element/datastore/difference.h"

namespace report {

enum class ChangeMark { added, removed, changed };

/// One change as a reader sees it. A list entry in which something changed is no change of its own.
struct ListedChange {
  ChangeMark mark = ChangeMark::changed;
  std::string path;
  std::string object;  ///< path of the outermost list entry that it belongs to; `path` where it is in none
  std::optional<std::string> old_value;
  std::optional<std::string> new_value;
  bool derived = false;
};

/// The changes in schema order: the operator's nodes, or derived ones as well.
std::vector<ListedChange> list_changes(const element::Change &root, bool with_derived);

}  // namespace report

#endif
