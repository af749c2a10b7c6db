#include "host/seam/agent.h"

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

}  // namespace host
