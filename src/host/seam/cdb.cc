// Reads of the running configuration in a CDB session.

#include <cstdarg>
#include <cstddef>

#include "confd_cdb.h"
#include "host/seam/agent.h"
#include "host/seam/object_values.h"
#include "host/seam/resolve.h"
#include "host/seam/session_state.h"

namespace host {

namespace {

/// The list that a read came out at.
struct ListRead {
  ResolvedPath path;
  const element::Node *list = nullptr;  ///< null where the running configuration has no entry

  /// False, with confd_errno set, where there is no such session, no transaction, or no such list.
  [[gnu::format(printf, 4, 0)]] bool start(SeamFunction function, int sock, const char *format,
                                           std::va_list arguments) {
    HostSession *session = enter_agent(function);
    if (session == nullptr) return false;
    const bool served = session->state().cdb_sockets.count(sock) != 0 && session->transaction() != nullptr;
    if (!served) return give_up(CONFD_ERR_NOSESSION);
    const element::Tree &running = session->transaction()->running;
    if (const int reason = resolve_path(*session, function, path, format, arguments); reason != 0)
      return give_up(reason);
    if (!path.is_list()) return give_up(CONFD_ERR_BADPATH);
    list = locate(running, path, session->state().hints).node;
    return true;
  }

  std::size_t size() const { return list == nullptr ? 0 : list->children.size(); }

 private:
  static bool give_up(int reason) {
    fail(reason);
    return false;
  }
};

}  // namespace

}  // namespace host

using host::SeamFunction;

int cdb_num_instances(int sock, const char *fmt, ...) {
  host::ListRead read;
  std::va_list arguments;
  va_start(arguments, fmt);
  const bool started = read.start(SeamFunction::cdb_num_instances, sock, fmt, arguments);
  va_end(arguments);
  return started ? static_cast<int>(read.size()) : CONFD_ERR;
}

int cdb_get_objects(int sock, confd_value_t *values, int n, int ix, int nobj, const char *fmt, ...) {
  host::ListRead read;
  std::va_list arguments;
  va_start(arguments, fmt);
  const bool started = read.start(SeamFunction::cdb_get_objects, sock, fmt, arguments);
  va_end(arguments);
  if (!started) return CONFD_ERR;

  if (n < 0 || ix < 0 || nobj < 0) return host::fail(CONFD_ERR_BADTYPE);
  const auto first = static_cast<std::size_t>(ix);
  const auto count = static_cast<std::size_t>(nobj);
  if (first + count > read.size()) return host::fail(CONFD_ERR_NOEXISTS);
  for (std::size_t i = 0; i < count; ++i) {
    confd_value_t *const entry_values = values + i * static_cast<std::size_t>(n);
    host::write_object(read.path.target(), &read.list->children[first + i], entry_values, n);
  }
  return CONFD_OK;
}
