// The daemon's middleware: a middleware instance is the active element's address.

#include "host/seam/agent.h"
#include "host/seam/seam_state.h"
#include "qnconfd.h"

using host::SeamFunction;

int32_t qnconfd_maapi_socket_get(void *middleware) {
  host::Seam *seam = host::enter_agent(SeamFunction::qnconfd_maapi_socket_get);
  if (seam == nullptr) return CONFD_ERR;
  return middleware == seam->middleware() ? seam->maapi_socket() : host::fail(CONFD_ERR_NOSESSION);
}

QnConfdInterface *qnconfd_instance_get(void *middleware) {
  host::Seam *seam = host::enter_agent(SeamFunction::qnconfd_instance_get);
  const bool known = seam != nullptr && middleware == seam->middleware();
  return known ? static_cast<QnConfdInterface *>(middleware) : nullptr;
}

namespace {

// A session that cannot be started has no socket, so that every read of it fails.
constexpr int kNoSocket = -1;

int start_session(const QnConfdInterface *instance, cdb_db_type db) {
  host::Seam *seam = host::enter_agent(SeamFunction::cdb_session_start);
  const bool served = seam != nullptr && instance == seam->middleware() && db == CDB_RUNNING;
  if (!served) return kNoSocket;
  const int socket = seam->state().next_cdb_socket++;
  seam->state().cdb_sockets.insert(socket);
  ++seam->account.open_sessions;
  return socket;
}

}  // namespace

QnConfdCdbSessionBase::QnConfdCdbSessionBase(QnConfdInterface *instance, cdb_db_type db, bool)
    : socket_(start_session(instance, db)) {}

QnConfdCdbSessionBase::~QnConfdCdbSessionBase() {
  host::Seam *seam = host::Seam::active();
  if (seam == nullptr) return;
  seam->enter(SeamFunction::cdb_session_end);
  if (seam->state().cdb_sockets.erase(socket_) != 0) --seam->account.open_sessions;
}

int QnConfdCdbSessionBase::Socket() const { return socket_; }
