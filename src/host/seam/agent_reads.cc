// Reads of the transaction's candidate configuration by path.

#include <cstdarg>

#include "confd_maapi.h"
#include "host/seam/agent.h"
#include "host/seam/agent_values.h"
#include "host/seam/object_values.h"
#include "host/seam/resolve.h"
#include "host/seam/session_state.h"

namespace host {

namespace {

/// A read by path, before the path is known.
struct ReadCall {
  SeamFunction function;
  int sock;
  int thandle;
};

/// Where a read by path came out: an element and a place in its candidate.
struct Read {
  HostSession *session = nullptr;
  ResolvedPath path;
  Place place;
};

/// The value of the leaf that a read came out at, or null with confd_errno set.
const element::Value *leaf_value(const Read &read) {
  if (read.path.target().kind != element::NodeKind::leaf) {
    fail(CONFD_ERR_BADPATH);
    return nullptr;
  }
  if (read.place.value == nullptr) fail(CONFD_ERR_NOEXISTS);
  return read.place.value;
}

/// The value of the leaf as a T, or null with confd_errno set.
template <typename T>
const T *leaf_content(const Read &read) {
  const element::Value *value = leaf_value(read);
  if (value == nullptr) return nullptr;
  const T *content = std::get_if<T>(value);
  if (content == nullptr) fail(CONFD_ERR_BADTYPE);
  return content;
}

/// What `answer` makes of the read; CONFD_ERR, with confd_errno set, where the call fails or the path leads nowhere.
template <typename Answer>
[[gnu::format(printf, 2, 0)]] int read_by_path(const ReadCall &call, const char *format, std::va_list arguments,
                                               Answer answer) {
  Read read;
  read.session = enter_transaction(call.function, call.sock, call.thandle);
  if (read.session == nullptr) return CONFD_ERR;
  const int reason = resolve_path(*read.session, call.function, read.path, format, arguments);
  if (reason != 0) return fail(reason);
  read.place = locate(read.session->transaction()->candidate, read.path, read.session->state().hints);
  return answer(read);
}

}  // namespace

}  // namespace host

using host::Read;
using host::read_by_path;
using host::SeamFunction;

int maapi_num_instances(int sock, int thandle, const char *fmt, ...) {
  std::va_list arguments;
  va_start(arguments, fmt);
  const int answer =
      read_by_path({SeamFunction::maapi_num_instances, sock, thandle}, fmt, arguments, [&](const Read &read) {
        if (!read.path.is_list()) return host::fail(CONFD_ERR_BADPATH);
        return read.place.node == nullptr ? 0 : static_cast<int>(read.place.node->children.size());
      });
  va_end(arguments);
  return answer;
}

int maapi_exists(int sock, int thandle, const char *fmt, ...) {
  std::va_list arguments;
  va_start(arguments, fmt);
  const int answer = read_by_path({SeamFunction::maapi_exists, sock, thandle}, fmt, arguments,
                                  [&](const Read &read) { return read.place.exists ? 1 : 0; });
  va_end(arguments);
  return answer;
}

int maapi_get_elem(int sock, int thandle, confd_value_t *v, const char *fmt, ...) {
  std::va_list arguments;
  va_start(arguments, fmt);
  const int answer = read_by_path({SeamFunction::maapi_get_elem, sock, thandle}, fmt, arguments, [&](const Read &read) {
    const element::Value *value = host::leaf_value(read);
    if (value == nullptr) return CONFD_ERR;
    *v = host::owned_value(*value, read.path.target());
    return CONFD_OK;
  });
  va_end(arguments);
  return answer;
}

int maapi_get_u_int32_elem(int sock, int thandle, uint32_t *rval, const char *fmt, ...) {
  std::va_list arguments;
  va_start(arguments, fmt);
  const int answer =
      read_by_path({SeamFunction::maapi_get_u_int32_elem, sock, thandle}, fmt, arguments, [&](const Read &read) {
        const auto *number = host::leaf_content<std::uint32_t>(read);
        if (number == nullptr) return CONFD_ERR;
        *rval = *number;
        return CONFD_OK;
      });
  va_end(arguments);
  return answer;
}

int maapi_get_enum_value_elem(int sock, int thandle, int32_t *rval, const char *fmt, ...) {
  std::va_list arguments;
  va_start(arguments, fmt);
  const int answer =
      read_by_path({SeamFunction::maapi_get_enum_value_elem, sock, thandle}, fmt, arguments, [&](const Read &read) {
        const auto *item = host::leaf_content<element::Enumeration>(read);
        if (item == nullptr) return CONFD_ERR;
        *rval = item->number;
        return CONFD_OK;
      });
  va_end(arguments);
  return answer;
}

int maapi_get_object(int sock, int thandle, confd_value_t *values, int n, const char *fmt, ...) {
  std::va_list arguments;
  va_start(arguments, fmt);
  const int answer =
      read_by_path({SeamFunction::maapi_get_object, sock, thandle}, fmt, arguments, [&](const Read &read) {
        if (!read.path.is_object()) return host::fail(CONFD_ERR_BADPATH);
        if (!read.place.exists) return host::fail(CONFD_ERR_NOEXISTS);
        return host::write_object(read.path.target(), read.place.node, values, n);
      });
  va_end(arguments);
  return answer;
}
