// Reads of the transaction's lists by cursor.

#include <algorithm>
#include <cstdarg>
#include <cstddef>
#include <string>

#include "confd_maapi.h"
#include "tests/support/platform.h"

using scripted::Platform;
using scripted::Values;

namespace {

// Lists and counts a call on a cursor; true when it must fail.
bool enter_on(const maapi_cursor *mc, const char *function, const std::string &detail = "") {
  Platform &platform = Platform::active();
  if (platform.enter(function, platform.cursors.path(*mc) + detail)) return true;
  if (platform.cursors.is_open(*mc)) return false;
  platform.fail_with(CONFD_ERR_NOEXISTS);
  return true;
}

std::string keys_text(const Values &keys) {
  std::string out;
  for (const scripted::Value &key : keys) out += (out.empty() ? "" : " ") + scripted::to_text(key);
  return '{' + out + '}';
}

// The row of the first entry after the keys, or of the one with exactly those keys.
std::size_t find_row(const scripted::List &list, const Values &keys, bool same_allowed) {
  std::size_t row = 0;
  for (; row < list.rows.size(); ++row) {
    const int order = scripted::compare(list.keys(row), keys);
    if (order > 0 || (order == 0 && same_allowed)) break;
  }
  return row;
}

}  // namespace

int maapi_init_cursor(int sock, int thandle, maapi_cursor *mc, const char *fmt, ...) {
  Platform &platform = Platform::active();
  va_list arguments;
  va_start(arguments, fmt);
  const auto path = platform.enter_read("maapi_init_cursor", sock, thandle, fmt, arguments);
  va_end(arguments);
  if (!path) {
    platform.cursors.stand_on_none(*mc);
    return CONFD_ERR;
  }
  platform.cursors.open(*mc, sock, thandle, platform.candidate().find_list(*path), scripted::to_text(*path));
  return CONFD_OK;
}

int maapi_get_next(maapi_cursor *mc) {
  Platform &platform = Platform::active();
  if (enter_on(mc, "maapi_get_next")) {
    platform.cursors.stand_on_none(*mc);
    return CONFD_ERR;
  }
  platform.cursors.stand_on(*mc, platform.cursors.next_row(*mc));
  return CONFD_OK;
}

int maapi_find_next(maapi_cursor *mc, confd_find_next_type type, confd_value_t *inkeys, int n_inkeys) {
  Platform &platform = Platform::active();
  Values keys;
  for (int i = 0; i < n_inkeys; ++i) keys.push_back(scripted::from_platform(inkeys[i]));
  const bool same_allowed = type == CONFD_FIND_SAME_OR_NEXT;
  if (enter_on(mc, "maapi_find_next", (same_allowed ? " same or after " : " after ") + keys_text(keys))) {
    platform.cursors.stand_on_none(*mc);
    return CONFD_ERR;
  }
  const scripted::List *list = platform.cursors.list(*mc);
  platform.cursors.stand_on(*mc, list == nullptr ? 0 : find_row(*list, keys, same_allowed));
  return CONFD_OK;
}

int maapi_get_objects(maapi_cursor *mc, confd_value_t *values, int n, int *nobj) {
  Platform &platform = Platform::active();
  if (enter_on(mc, "maapi_get_objects", " " + std::to_string(*nobj) + "x" + std::to_string(n))) return CONFD_ERR;

  const scripted::List *list = platform.cursors.list(*mc);
  const std::size_t first = platform.cursors.next_row(*mc);
  const std::size_t size = list == nullptr ? 0 : list->rows.size();
  const std::size_t wanted = static_cast<std::size_t>(*nobj);
  const std::size_t width = static_cast<std::size_t>(n);
  const std::size_t read = std::min(wanted, size - first);
  for (std::size_t i = 0; i < read; ++i) {
    const Values &row = list->rows[first + i];
    for (std::size_t k = 0; k < std::min(row.size(), width); ++k) platform.hand_out(row[k], &values[i * width + k]);
  }
  if (read < wanted) platform.cursors.stand_on(*mc, size);
  if (read == wanted && read != 0) platform.cursors.stand_on(*mc, first + read - 1);
  *nobj = static_cast<int>(read);
  return size == 0 ? 0 : static_cast<int>(list->rows.front().size());
}

void maapi_destroy_cursor(maapi_cursor *mc) {
  Platform &platform = Platform::active();
  platform.enter("maapi_destroy_cursor", platform.cursors.path(*mc));
  platform.cursors.close(*mc);
}
