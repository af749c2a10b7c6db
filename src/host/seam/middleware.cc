// The daemon's middleware: a middleware instance is the active element's address.

#include "host/seam/agent.h"
#include "host/seam/session_state.h"
#include "qnconfd.h"

using host::SeamFunction;

int32_t qnconfd_maapi_socket_get(void *middleware) {
  host::HostSession *session = host::enter_agent(SeamFunction::qnconfd_maapi_socket_get);
  if (session == nullptr) return CONFD_ERR;
  return middleware == session->middleware() ? session->maapi_socket() : host::fail(CONFD_ERR_NOSESSION);
}

QnConfdInterface *qnconfd_instance_get(void *middleware) {
  host::HostSession *session = host::enter_agent(SeamFunction::qnconfd_instance_get);
  const bool known = session != nullptr && middleware == session->middleware();
  return known ? static_cast<QnConfdInterface *>(middleware) : nullptr;
}

namespace {

// A session that cannot be started has no socket, so that every read of it fails.
constexpr int kNoSocket = -1;

int start_session(const QnConfdInterface *instance, cdb_db_type db) {
  host::HostSession *session = host::enter_agent(SeamFunction::cdb_session_start);
  const bool served = session != nullptr && instance == session->middleware() && db == CDB_RUNNING;
  if (!served) return kNoSocket;
  const int socket = session->state().next_cdb_socket++;
  session->state().cdb_sockets.insert(socket);
  ++session->statistics.open_sessions;
  return socket;
}

}  // namespace

QnConfdCdbSessionBase::QnConfdCdbSessionBase(QnConfdInterface *instance, cdb_db_type db, bool)
    : socket_(start_session(instance, db)) {}

QnConfdCdbSessionBase::~QnConfdCdbSessionBase() {
  host::HostSession *session = host::HostSession::active();
  if (session == nullptr) return;
  session->enter(SeamFunction::cdb_session_end);
  if (session->state().cdb_sockets.erase(socket_) != 0) --session->statistics.open_sessions;
}

int QnConfdCdbSessionBase::Socket() const { return socket_; }
