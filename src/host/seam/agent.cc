#include "host/seam/agent.h"

int confd_errno = 0;

namespace host {

int fail(int reason) {
  confd_errno = reason;
  return CONFD_ERR;
}

Seam *enter_agent(SeamFunction function) {
  Seam *seam = Seam::active();
  if (seam == nullptr) {
    fail(CONFD_ERR_NOSESSION);
    return nullptr;
  }
  if (seam->enter(function)) {
    fail(CONFD_ERR_OS);
    return nullptr;
  }
  return seam;
}

Seam *enter_transaction(SeamFunction function, int sock, int thandle) {
  Seam *seam = enter_agent(function);
  if (seam == nullptr) return nullptr;
  const bool known = sock == seam->maapi_socket() && thandle == seam->transaction_handle();
  if (known && seam->transaction() != nullptr) return seam;
  fail(CONFD_ERR_NOSESSION);
  return nullptr;
}

}  // namespace host
