// The daemon's middleware, its read sessions and trace layer; and the clock.

#include <chrono>

#include "maintenance/recorder/recorded_call.h"
#include "maintenance/recorder/replacements.h"
#include "qnconfd.h"
#include "qnmw_trace.h"

namespace recorder {

namespace {

using recording::Function;
using recording::Handle;
using recording::HandleKind;

Handle known(HandleKind kind, const void *address) { return tape().handles().known(kind, address); }

int32_t socket_get(void *middleware) {
  RecordedCall call(Function::qnconfd_maapi_socket_get, known(HandleKind::middleware, middleware));
  const auto platform = original<decltype(qnconfd_maapi_socket_get)>(Function::qnconfd_maapi_socket_get);
  const int32_t result = platform(middleware);
  call.answered_by_agent(result);
  call.done();
  return result;
}

/// A pointer that the platform answers, which may be null.
Handle answered_handle(HandleKind kind, const void *address) {
  if (address == nullptr || !tape().is_running()) return {};
  return tape().handles().known_or_open(kind, address);
}

QnConfdInterface *instance_get(void *middleware) {
  RecordedCall call(Function::qnconfd_instance_get, known(HandleKind::middleware, middleware));
  const auto platform = original<decltype(qnconfd_instance_get)>(Function::qnconfd_instance_get);
  QnConfdInterface *instance = platform(middleware);
  call.answered();
  call.outputs(answered_handle(HandleKind::instance, instance));
  call.done();
  return instance;
}

void session_start(void *session, QnConfdInterface *instance, cdb_db_type db, bool flag) {
  const Handle handle = tape().is_running() ? tape().handles().open(HandleKind::session, session) : Handle{};
  RecordedCall call(Function::cdb_session_start, handle, known(HandleKind::instance, instance),
                    static_cast<std::int32_t>(db), std::int32_t{flag});
  original<void(void *, QnConfdInterface *, cdb_db_type, bool)>(Function::cdb_session_start)(session, instance, db,
                                                                                             flag);
  call.answered();
  call.done();
}

void session_end(void *session) {
  RecordedCall call(Function::cdb_session_end, known(HandleKind::session, session));
  original<void(void *)>(Function::cdb_session_end)(session);
  call.answered();
  call.done();
}

int session_socket(const void *session) {
  RecordedCall call(Function::cdb_session_socket, known(HandleKind::session, session));
  const int result = original<int(const void *)>(Function::cdb_session_socket)(session);
  call.answered(result);
  call.done();
  return result;
}

zlog_category_t *register_category(const char *name) {
  RecordedCall call(Function::qnmw_trace_register_category, name);
  const auto platform = original<decltype(qnmw_trace_register_category)>(Function::qnmw_trace_register_category);
  zlog_category_t *category = platform(name);
  call.answered();
  call.outputs(answered_handle(HandleKind::category, category));
  call.done();
  return category;
}

void trace(zlog_category_t *category, const char *file, size_t filelen, const char *func, size_t funclen, long line,
           int level, const char *format, ...) {
  HOOKS_FORMAT_ARGUMENTS(arguments, format);
  RecordedCall call(Function::zlog, known(HandleKind::category, category), std::string_view(file, filelen),
                    std::string_view(func, funclen), std::int64_t{line}, level, arguments);
  const auto platform = original<decltype(zlog)>(Function::zlog);
  arguments.pass_on(platform, category, file, filelen, func, funclen, line, level, format);
  call.answered();
  call.done();
}

// Recorded, because the library extends its time-out by the clock: with other times a replay would make other calls.
std::chrono::system_clock::time_point clock_now() {
  RecordedCall call(Function::system_clock_now);
  const auto now = original<std::chrono::system_clock::time_point()>(Function::system_clock_now)();
  const std::int64_t time = std::chrono::duration_cast<std::chrono::nanoseconds>(now.time_since_epoch()).count();
  call.answered(time);
  call.done();
  tape().note_time(time);
  return now;
}

}  // namespace

void add_middleware(hooks::Addresses &replacements) {
  add(replacements, Function::qnconfd_maapi_socket_get, socket_get);
  add(replacements, Function::qnconfd_instance_get, instance_get);
  add(replacements, Function::cdb_session_start, session_start);
  add(replacements, Function::cdb_session_end, session_end);
  add(replacements, Function::cdb_session_socket, session_socket);
  add(replacements, Function::qnmw_trace_register_category, register_category);
  add(replacements, Function::zlog, trace);
  add(replacements, Function::system_clock_now, clock_now);
}

}  // namespace recorder
