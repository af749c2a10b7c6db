#ifndef TESTS_SUPPORT_CURSORS_H
#define TESTS_SUPPORT_CURSORS_H

#include <cstddef>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "confd_maapi.h"
#include "tests/support/datastore.h"

namespace scripted {

/// The cursors that are open, known by the address of the caller's structure, so that one that was never opened is
/// told from an open one whatever bytes it holds.
class Cursors {
 public:
  /// Puts the cursor before the first entry; null: an empty list. A cursor that was open there is lost for good.
  void open(maapi_cursor &mc, int sock, int thandle, const List *list, std::string path);
  void close(maapi_cursor &mc);

  bool is_open(const maapi_cursor &mc) const { return open_.contains(&mc); }

  /// The path it was opened on, "(not open)" for one that is not.
  std::string path(const maapi_cursor &mc) const;

  /// On an open cursor: the list it reads, null when there is none.
  const List *list(const maapi_cursor &mc) const { return open_.at(&mc).list; }

  /// The entry that a fetch would read next.
  std::size_t next_row(const maapi_cursor &mc) const { return open_.at(&mc).next; }

  /// Stands on a row; past the last one on no entry.
  void stand_on(maapi_cursor &mc, std::size_t row);

  /// Stands on no entry, as after a failed move; the place in the list stays.
  void stand_on_none(maapi_cursor &mc);

  /// Paths of those that are open or were lost.
  std::vector<std::string> unclosed() const;

 private:
  struct Open {
    std::string path;
    const List *list = nullptr;
    std::size_t next = 0;
    std::vector<std::unique_ptr<unsigned char[]>> texts;  ///< what mc.keys points to, gone with the next move
  };

  std::map<const maapi_cursor *, Open> open_;
  std::vector<std::string> lost_;
};

}  // namespace scripted

#endif
