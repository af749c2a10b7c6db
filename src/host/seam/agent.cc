#include "host/seam/agent.h"

#include "host/seam/formatted_text.h"

int confd_errno = 0;

namespace host {

int fail(int reason) {
  confd_errno = reason;
  return CONFD_ERR;
}

HostSession *enter_agent(SeamFunction function) {
  HostSession *session = HostSession::active();
  if (session == nullptr) {
    fail(CONFD_ERR_NOSESSION);
    return nullptr;
  }
  if (session->enter(function)) {
    fail(CONFD_ERR_OS);
    return nullptr;
  }
  return session;
}

HostSession *enter_transaction(SeamFunction function, int sock, int thandle) {
  HostSession *session = enter_agent(function);
  if (session == nullptr) return nullptr;
  const bool known = sock == session->maapi_socket() && thandle == session->transaction_handle();
  if (known && session->transaction() != nullptr) return session;
  fail(CONFD_ERR_NOSESSION);
  return nullptr;
}

namespace {

std::vector<std::string> keys_of(const FormattedPath &path) {
  std::vector<std::string> keys;
  for (const FormattedPath::Part &part : path) {
    if (part.is_key) keys.emplace_back(part.text);
  }
  return keys;
}

}  // namespace

int resolve_path(HostSession &session, SeamFunction function, ResolvedPath &path, const char *format,
                 std::va_list arguments) {
  std::va_list again;
  va_copy(again, arguments);
  const int reason = path.resolve(session.transaction()->candidate.schema(), format, arguments);
  if (reason != 0) {
    session.statistics.unreadable_paths.push_back({function, formatted_text(format, again), {}});
  } else if (path.text().has_quotes()) {
    session.statistics.unreadable_paths.push_back({function, formatted_text(format, again), keys_of(path.text())});
  }
  va_end(again);
  return reason;
}

}  // namespace host
