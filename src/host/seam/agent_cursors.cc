// Cursors over a list of the transaction's candidate configuration.

#include <algorithm>
#include <cstdarg>

#include "confd_maapi.h"
#include "host/seam/agent.h"
#include "host/seam/agent_values.h"
#include "host/seam/object_values.h"
#include "host/seam/resolve.h"
#include "host/seam/session_state.h"

namespace host {

namespace {

/// Counts a call on a cursor. The cursor's own state, or null with confd_errno set.
OpenCursor *enter_cursor(SeamFunction function, const maapi_cursor &mc) {
  HostSession *session = enter_transaction(function, mc.sock, mc.thandle);
  if (session == nullptr) return nullptr;
  OpenCursor *cursor = session->state().cursors.find(mc.host);
  if (cursor == nullptr) fail(CONFD_ERR_NOSESSION);
  return cursor;
}

std::size_t entry_count(const OpenCursor &cursor) {
  return cursor.entries == nullptr ? 0 : cursor.entries->children.size();
}

/// Copies an entry's keys into the cursor. Texts are laid out one after the other in the cursor's own memory, which
/// the next move writes over: a caller that keeps a key longer reads another's.
void show_keys(OpenCursor &cursor, const element::Node &entry, maapi_cursor &mc) {
  const std::size_t count = std::min<std::size_t>(entry.keys.size(), MAXKEYLEN);
  std::size_t text_size = 0;
  for (std::size_t i = 0; i < count; ++i) {
    mc.keys[i] = borrowed_value(entry.keys[i], key_leaf(*cursor.list, i));
    if (mc.keys[i].type == C_BUF) text_size += mc.keys[i].val.buf.size + 1;
  }
  cursor.key_text.resize(text_size);
  char *text = cursor.key_text.data();
  for (std::size_t i = 0; i < count; ++i) {
    if (mc.keys[i].type != C_BUF) continue;
    confd_buf_t &buf = mc.keys[i].val.buf;
    auto *copy = reinterpret_cast<unsigned char *>(text);
    text = std::copy_n(reinterpret_cast<const char *>(buf.ptr), buf.size, text);
    *text++ = '\0';
    buf.ptr = copy;
  }
  mc.n = static_cast<int>(count);
}

/// As enter_cursor for a move: until it succeeds the cursor stands on no entry.
OpenCursor *enter_move(SeamFunction function, maapi_cursor &mc) {
  mc.n = 0;
  return enter_cursor(function, mc);
}

/// Stands on the entry that is next, on none past the end.
int move(OpenCursor &cursor, maapi_cursor &mc) {
  if (cursor.next >= entry_count(cursor)) return CONFD_OK;
  show_keys(cursor, cursor.entries->children[cursor.next], mc);
  ++cursor.next;
  return CONFD_OK;
}

/// 0, or why these are no keys to look for in the list.
int check_keys(const element::SchemaNode &list, const confd_value_t *keys, int count) {
  if (count < 0 || static_cast<std::size_t>(count) > list.key_count) return CONFD_ERR_BADPATH;
  for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i) {
    const confd_vtype wanted = agent_type(*list.children[i]);
    const bool is_text = wanted == C_BUF && keys[i].type == C_STR;
    if (keys[i].type != wanted && !is_text) return CONFD_ERR_BADTYPE;
  }
  return 0;
}

[[gnu::format(printf, 3, 0)]] int open_cursor(HostSession &session, maapi_cursor &mc, const char *format,
                                              std::va_list arguments) {
  const element::Tree &candidate = session.transaction()->candidate;
  ResolvedPath path;
  if (const int reason = resolve_path(session, SeamFunction::maapi_init_cursor, path, format, arguments); reason != 0)
    return fail(reason);
  if (!path.is_list()) return fail(CONFD_ERR_BADPATH);
  SessionState &state = session.state();
  mc.host = state.cursors.open(path.target(), locate(candidate, path, state.hints).node);
  ++session.statistics.open_cursors;
  return CONFD_OK;
}

}  // namespace

}  // namespace host

using host::SeamFunction;

int maapi_init_cursor(int sock, int thandle, maapi_cursor *mc, const char *fmt, ...) {
  mc->n = 0;
  mc->sock = sock;
  mc->thandle = thandle;
  mc->host = nullptr;
  host::HostSession *session = host::enter_transaction(SeamFunction::maapi_init_cursor, sock, thandle);
  if (session == nullptr) return CONFD_ERR;

  std::va_list arguments;
  va_start(arguments, fmt);
  const int result = host::open_cursor(*session, *mc, fmt, arguments);
  va_end(arguments);
  return result;
}

int maapi_get_next(maapi_cursor *mc) {
  host::OpenCursor *cursor = host::enter_move(SeamFunction::maapi_get_next, *mc);
  return cursor == nullptr ? CONFD_ERR : host::move(*cursor, *mc);
}

// Keys that are fewer than the list's stand before all that begin with them, so that both modes then move to the first
// of these.
int maapi_find_next(maapi_cursor *mc, confd_find_next_type type, confd_value_t *inkeys, int n_inkeys) {
  host::OpenCursor *cursor = host::enter_move(SeamFunction::maapi_find_next, *mc);
  if (cursor == nullptr) return CONFD_ERR;
  if (const int reason = host::check_keys(*cursor->list, inkeys, n_inkeys); reason != 0) return host::fail(reason);
  if (cursor->entries == nullptr) return CONFD_OK;

  const auto count = static_cast<std::size_t>(n_inkeys);
  const element::Nodes &entries = cursor->entries->children;
  cursor->next = host::first_not_before(entries, inkeys, count);
  const bool skip_same = type == CONFD_FIND_NEXT && cursor->next < entries.size() &&
                         host::compare_keys(inkeys, count, entries[cursor->next].keys) == 0;
  if (skip_same) ++cursor->next;
  return host::move(*cursor, *mc);
}

// A list without entries has none to tell how many values they have.
int maapi_get_objects(maapi_cursor *mc, confd_value_t *values, int n, int *nobj) {
  host::OpenCursor *cursor = host::enter_cursor(SeamFunction::maapi_get_objects, *mc);
  if (cursor == nullptr) return CONFD_ERR;
  if (n < 0 || *nobj < 0) return host::fail(CONFD_ERR_BADTYPE);

  const int wanted = *nobj;
  const std::size_t size = host::entry_count(*cursor);
  *nobj = static_cast<int>(std::min(size - cursor->next, static_cast<std::size_t>(wanted)));
  int value_count = size == 0 ? 0 : host::write_object(*cursor->list, nullptr, nullptr, 0);
  for (int i = 0; i < *nobj; ++i) {
    const element::Node &entry = cursor->entries->children[cursor->next++];
    value_count = host::write_object(*cursor->list, &entry, values + static_cast<std::ptrdiff_t>(i) * n, n);
  }
  mc->n = 0;
  const bool stands_on_last = *nobj == wanted && cursor->next > 0;
  if (stands_on_last) host::show_keys(*cursor, cursor->entries->children[cursor->next - 1], *mc);
  return value_count;
}

// A cursor that never was initialised, or whose initialisation failed, is destroyed harmlessly.
void maapi_destroy_cursor(maapi_cursor *mc) {
  host::HostSession *session = host::HostSession::active();
  if (session == nullptr) return;
  session->enter(SeamFunction::maapi_destroy_cursor);
  if (session->state().cursors.close(mc->host)) --session->statistics.open_cursors;
  mc->n = 0;
}
