// The management agent: reads by path, and what the library tells it.

#include <cstdio>

#include "confd_cdb.h"
#include "confd_dp.h"
#include "confd_maapi.h"
#include "maintenance/recorder/output_values.h"
#include "maintenance/recorder/recorded_call.h"
#include "maintenance/recorder/replacements.h"

namespace recorder {

namespace {

using recording::Function;
using recording::HandleKind;

recording::Handle context(const confd_trans_ctx *tctx) { return tape().handles().known(HandleKind::context, tctx); }

/// A read of the transaction whose answer is its result alone.
int read(Function function, int sock, int thandle, const hooks::FormatArguments &arguments) {
  RecordedCall call(function, sock, thandle, arguments);
  const int result = arguments.pass_on(original<decltype(maapi_exists)>(function), sock, thandle, arguments.format());
  call.answered_by_agent(result);
  call.done();
  return result;
}

int num_instances(int sock, int thandle, const char *fmt, ...) {
  HOOKS_FORMAT_ARGUMENTS(arguments, fmt);
  return read(Function::maapi_num_instances, sock, thandle, arguments);
}

int exists(int sock, int thandle, const char *fmt, ...) {
  HOOKS_FORMAT_ARGUMENTS(arguments, fmt);
  return read(Function::maapi_exists, sock, thandle, arguments);
}

int get_elem(int sock, int thandle, confd_value_t *v, const char *fmt, ...) {
  HOOKS_FORMAT_ARGUMENTS(arguments, fmt);
  RecordedCall call(Function::maapi_get_elem, sock, thandle, arguments);
  OutputValues written(call.is_recording(), v, 1);
  const auto platform = original<decltype(maapi_get_elem)>(Function::maapi_get_elem);
  const int result = arguments.pass_on(platform, sock, thandle, v, fmt);
  call.answered_by_agent(result);
  written.record();
  call.done();
  return result;
}

/// A read of one number, which is written where the read succeeds.
template <typename Number>
int read_number(Function function, int sock, int thandle, Number *rval, const hooks::FormatArguments &arguments) {
  using Type = int(int, int, Number *, const char *, ...);
  RecordedCall call(function, sock, thandle, arguments);
  const int result = arguments.pass_on(original<Type>(function), sock, thandle, rval, arguments.format());
  call.answered_by_agent(result);
  if (result == CONFD_OK) call.outputs(*rval);
  call.done();
  return result;
}

int get_u_int32_elem(int sock, int thandle, uint32_t *rval, const char *fmt, ...) {
  HOOKS_FORMAT_ARGUMENTS(arguments, fmt);
  return read_number(Function::maapi_get_u_int32_elem, sock, thandle, rval, arguments);
}

int get_enum_value_elem(int sock, int thandle, int32_t *rval, const char *fmt, ...) {
  HOOKS_FORMAT_ARGUMENTS(arguments, fmt);
  return read_number(Function::maapi_get_enum_value_elem, sock, thandle, rval, arguments);
}

int get_object(int sock, int thandle, confd_value_t *values, int n, const char *fmt, ...) {
  HOOKS_FORMAT_ARGUMENTS(arguments, fmt);
  RecordedCall call(Function::maapi_get_object, sock, thandle, n, arguments);
  OutputValues written(call.is_recording(), values, n);
  const auto platform = original<decltype(maapi_get_object)>(Function::maapi_get_object);
  const int result = arguments.pass_on(platform, sock, thandle, values, n, fmt);
  call.answered_by_agent(result);
  written.record();
  call.done();
  return result;
}

int cdb_instances(int sock, const char *fmt, ...) {
  HOOKS_FORMAT_ARGUMENTS(arguments, fmt);
  RecordedCall call(Function::cdb_num_instances, sock, arguments);
  const int result = arguments.pass_on(original<decltype(cdb_num_instances)>(Function::cdb_num_instances), sock, fmt);
  call.answered_by_agent(result);
  call.done();
  return result;
}

int cdb_objects(int sock, confd_value_t *values, int n, int ix, int nobj, const char *fmt, ...) {
  HOOKS_FORMAT_ARGUMENTS(arguments, fmt);
  RecordedCall call(Function::cdb_get_objects, sock, n, ix, nobj, arguments);
  OutputValues written(call.is_recording(), values, long{n} * nobj);
  const auto platform = original<decltype(cdb_get_objects)>(Function::cdb_get_objects);
  const int result = arguments.pass_on(platform, sock, values, n, ix, nobj, fmt);
  call.answered_by_agent(result);
  written.record();
  call.done();
  return result;
}

void free_value(confd_value_t *v) {
  RecordedCall call(Function::confd_free_value, *v);
  original<decltype(confd_free_value)>(Function::confd_free_value)(v);
  call.answered();
  call.done();
}

void keep_message(const hooks::FormatArguments &arguments) {
  char none = '\0';
  const int size = arguments.pass_on(&std::snprintf, &none, std::size_t{0}, arguments.format());
  if (size < 0) return tape().give_up("a message cannot be formatted");
  std::string message(static_cast<std::size_t>(size), '\0');
  arguments.pass_on(&std::snprintf, message.data(), message.size() + 1, arguments.format());
  tape().set_message(std::move(message));
}

void note_message(const hooks::FormatArguments &arguments) noexcept try {
  if (tape().is_running()) keep_message(arguments);
} catch (...) {
  tape().give_up("memory is short");
}

void set_error(confd_trans_ctx *tctx, const char *fmt, ...) {
  HOOKS_FORMAT_ARGUMENTS(arguments, fmt);
  RecordedCall call(Function::confd_trans_seterr, context(tctx), arguments);
  arguments.pass_on(original<decltype(confd_trans_seterr)>(Function::confd_trans_seterr), tctx, fmt);
  call.answered();
  call.done();
  note_message(arguments);
}

int set_timeout(confd_trans_ctx *tctx, int timeout_secs) {
  RecordedCall call(Function::confd_data_set_timeout, context(tctx), timeout_secs);
  const auto platform = original<decltype(confd_data_set_timeout)>(Function::confd_data_set_timeout);
  const int result = platform(tctx, timeout_secs);
  call.answered_by_agent(result);
  call.done();
  tape().note_extension();
  return result;
}

}  // namespace

void add_agent(hooks::Addresses &replacements) {
  add(replacements, Function::maapi_num_instances, num_instances);
  add(replacements, Function::maapi_exists, exists);
  add(replacements, Function::maapi_get_elem, get_elem);
  add(replacements, Function::maapi_get_u_int32_elem, get_u_int32_elem);
  add(replacements, Function::maapi_get_enum_value_elem, get_enum_value_elem);
  add(replacements, Function::maapi_get_object, get_object);
  add(replacements, Function::cdb_num_instances, cdb_instances);
  add(replacements, Function::cdb_get_objects, cdb_objects);
  add(replacements, Function::confd_free_value, free_value);
  add(replacements, Function::confd_trans_seterr, set_error);
  add(replacements, Function::confd_data_set_timeout, set_timeout);
}

}  // namespace recorder
