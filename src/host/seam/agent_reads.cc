// Reads of the transaction's candidate configuration by path.

#include <cstdarg>

#include "confd_maapi.h"
#include "host/seam/agent.h"
#include "host/seam/agent_values.h"
#include "host/seam/object_values.h"
#include "host/seam/resolve.h"

namespace host {

namespace {

/// Where a read by path came out: an element and a place in its candidate, or nothing, with confd_errno set.
struct Read {
  HostSession *session = nullptr;
  ResolvedPath path;
  Place place;

  bool start(SeamFunction function, int sock, int thandle, const char *format, std::va_list arguments) {
    session = enter_transaction(function, sock, thandle);
    if (session == nullptr) return false;
    const element::Tree &candidate = session->transaction()->candidate;
    if (const int reason = resolve_path(*session, function, path, format, arguments); reason != 0) {
      fail(reason);
      return false;
    }
    place = locate(candidate, path);
    return true;
  }
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

}  // namespace

}  // namespace host

using host::SeamFunction;

int maapi_num_instances(int sock, int thandle, const char *fmt, ...) {
  host::Read read;
  std::va_list arguments;
  va_start(arguments, fmt);
  const bool started = read.start(SeamFunction::maapi_num_instances, sock, thandle, fmt, arguments);
  va_end(arguments);
  if (!started) return CONFD_ERR;

  if (!read.path.is_list()) return host::fail(CONFD_ERR_BADPATH);
  return read.place.node == nullptr ? 0 : static_cast<int>(read.place.node->children.size());
}

int maapi_exists(int sock, int thandle, const char *fmt, ...) {
  host::Read read;
  std::va_list arguments;
  va_start(arguments, fmt);
  const bool started = read.start(SeamFunction::maapi_exists, sock, thandle, fmt, arguments);
  va_end(arguments);
  if (!started) return CONFD_ERR;

  return read.place.exists ? 1 : 0;
}

int maapi_get_elem(int sock, int thandle, confd_value_t *v, const char *fmt, ...) {
  host::Read read;
  std::va_list arguments;
  va_start(arguments, fmt);
  const bool started = read.start(SeamFunction::maapi_get_elem, sock, thandle, fmt, arguments);
  va_end(arguments);
  if (!started) return CONFD_ERR;

  const element::Value *value = host::leaf_value(read);
  if (value == nullptr) return CONFD_ERR;
  *v = host::owned_value(*value, read.path.target());
  return CONFD_OK;
}

int maapi_get_u_int32_elem(int sock, int thandle, uint32_t *rval, const char *fmt, ...) {
  host::Read read;
  std::va_list arguments;
  va_start(arguments, fmt);
  const bool started = read.start(SeamFunction::maapi_get_u_int32_elem, sock, thandle, fmt, arguments);
  va_end(arguments);
  if (!started) return CONFD_ERR;

  const auto *number = host::leaf_content<std::uint32_t>(read);
  if (number == nullptr) return CONFD_ERR;
  *rval = *number;
  return CONFD_OK;
}

int maapi_get_enum_value_elem(int sock, int thandle, int32_t *rval, const char *fmt, ...) {
  host::Read read;
  std::va_list arguments;
  va_start(arguments, fmt);
  const bool started = read.start(SeamFunction::maapi_get_enum_value_elem, sock, thandle, fmt, arguments);
  va_end(arguments);
  if (!started) return CONFD_ERR;

  const auto *item = host::leaf_content<element::Enumeration>(read);
  if (item == nullptr) return CONFD_ERR;
  *rval = item->number;
  return CONFD_OK;
}

int maapi_get_object(int sock, int thandle, confd_value_t *values, int n, const char *fmt, ...) {
  host::Read read;
  std::va_list arguments;
  va_start(arguments, fmt);
  const bool started = read.start(SeamFunction::maapi_get_object, sock, thandle, fmt, arguments);
  va_end(arguments);
  if (!started) return CONFD_ERR;

  if (!read.path.is_object()) return host::fail(CONFD_ERR_BADPATH);
  if (!read.place.exists) return host::fail(CONFD_ERR_NOEXISTS);
  return host::write_object(read.path.target(), read.place.node, values, n);
}
