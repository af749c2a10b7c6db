#ifndef HOST_SEAM_CURSOR_POOL_H
#define HOST_SEAM_CURSOR_POOL_H

#include <cstddef>
#include <cstdint>
#include <deque>
#include <string>
#include <vector>

#include "element/datastore/tree.h"

namespace host {

/// Where a cursor stands in a list of the tree.
struct OpenCursor {
  const element::SchemaNode *list = nullptr;
  const element::Node *entries = nullptr;  ///< the list's node, null where the tree has none
  std::size_t next = 0;                    ///< index of the entry that the next move leads to
  std::string key_text;                    ///< text keys of the current entry, each with a terminating zero
};

/// The open cursors of an element. A cursor is known by a handle that is never given out twice, so that one that was
/// closed, or never opened, is told from an open one whatever its memory holds.
class CursorPool {
 public:
  /// Opens a cursor before the first entry; returns its handle.
  void *open(const element::SchemaNode &list, const element::Node *entries);

  /// The open cursor of this handle, or null.
  OpenCursor *find(void *handle);

  /// False when the handle is no open cursor's.
  bool close(void *handle);

  void close_all();

 private:
  struct Slot {
    OpenCursor cursor;
    std::uint32_t uses = 0;
    bool open = false;
  };

  Slot *slot(void *handle);

  std::deque<Slot> slots_;
  std::vector<std::uint32_t> free_;
};

}  // namespace host

#endif
