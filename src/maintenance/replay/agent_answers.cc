// The management agent's answers to reads by path, and to what the library tells it.

#include <cstdio>
#include <cstdlib>
#include <deque>

#include "confd_cdb.h"
#include "confd_dp.h"
#include "confd_maapi.h"
#include "maintenance/replay/answers.h"
#include "maintenance/replay/player.h"

namespace replay {

namespace {

using recording::Call;
using recording::Function;

int num_instances(int sock, int thandle, const char *fmt, ...) {
  HOOKS_FORMAT_ARGUMENTS(arguments, fmt);
  return result_of(player().answer(Function::maapi_num_instances, sock, thandle, arguments));
}

int exists(int sock, int thandle, const char *fmt, ...) {
  HOOKS_FORMAT_ARGUMENTS(arguments, fmt);
  return result_of(player().answer(Function::maapi_exists, sock, thandle, arguments));
}

int get_elem(int sock, int thandle, confd_value_t *v, const char *fmt, ...) {
  HOOKS_FORMAT_ARGUMENTS(arguments, fmt);
  const Call &call = player().answer(Function::maapi_get_elem, sock, thandle, arguments);
  Outputs(call).take_owned(v, 1);
  return result_of(call);
}

int get_u_int32_elem(int sock, int thandle, uint32_t *rval, const char *fmt, ...) {
  HOOKS_FORMAT_ARGUMENTS(arguments, fmt);
  const Call &call = player().answer(Function::maapi_get_u_int32_elem, sock, thandle, arguments);
  if (call.result == CONFD_OK) *rval = static_cast<uint32_t>(Outputs(call).take<std::uint64_t>());
  return result_of(call);
}

int get_enum_value_elem(int sock, int thandle, int32_t *rval, const char *fmt, ...) {
  HOOKS_FORMAT_ARGUMENTS(arguments, fmt);
  const Call &call = player().answer(Function::maapi_get_enum_value_elem, sock, thandle, arguments);
  if (call.result == CONFD_OK) *rval = static_cast<int32_t>(Outputs(call).take<std::int64_t>());
  return result_of(call);
}

int get_object(int sock, int thandle, confd_value_t *values, int n, const char *fmt, ...) {
  HOOKS_FORMAT_ARGUMENTS(arguments, fmt);
  const Call &call = player().answer(Function::maapi_get_object, sock, thandle, n, arguments);
  Outputs(call).take_owned(values, n);
  return result_of(call);
}

int cdb_instances(int sock, const char *fmt, ...) {
  HOOKS_FORMAT_ARGUMENTS(arguments, fmt);
  return result_of(player().answer(Function::cdb_num_instances, sock, arguments));
}

int cdb_objects(int sock, confd_value_t *values, int n, int ix, int nobj, const char *fmt, ...) {
  HOOKS_FORMAT_ARGUMENTS(arguments, fmt);
  const Call &call = player().answer(Function::cdb_get_objects, sock, n, ix, nobj, arguments);
  Outputs(call).take_owned(values, long{n} * nobj);
  return result_of(call);
}

void free_value(confd_value_t *v) {
  player().answer(Function::confd_free_value, *v);
  if (v->type == C_BUF) std::free(v->val.buf.ptr);
}

recording::Handle context(const confd_trans_ctx *tctx) {
  return player().handles().known(recording::HandleKind::context, tctx);
}

// The context points at the text; the last one stands.
void set_error(confd_trans_ctx *tctx, const char *fmt, ...) {
  HOOKS_FORMAT_ARGUMENTS(arguments, fmt);
  player().answer(Function::confd_trans_seterr, context(tctx), arguments);
  static std::deque<std::string> texts;
  char none = '\0';
  const int size = arguments.pass_on(&std::snprintf, &none, std::size_t{0}, fmt);
  std::string &text = texts.emplace_back(static_cast<std::size_t>(std::max(size, 0)), '\0');
  arguments.pass_on(&std::snprintf, text.data(), text.size() + 1, fmt);
  tctx->error = {CONFD_ERR, text.data()};
}

int set_timeout(confd_trans_ctx *tctx, int timeout_secs) {
  return result_of(player().answer(Function::confd_data_set_timeout, context(tctx), timeout_secs));
}

}  // namespace

void add_agent_answers(hooks::Addresses &addresses) {
  add(addresses, Function::maapi_num_instances, num_instances);
  add(addresses, Function::maapi_exists, exists);
  add(addresses, Function::maapi_get_elem, get_elem);
  add(addresses, Function::maapi_get_u_int32_elem, get_u_int32_elem);
  add(addresses, Function::maapi_get_enum_value_elem, get_enum_value_elem);
  add(addresses, Function::maapi_get_object, get_object);
  add(addresses, Function::cdb_num_instances, cdb_instances);
  add(addresses, Function::cdb_get_objects, cdb_objects);
  add(addresses, Function::confd_free_value, free_value);
  add(addresses, Function::confd_trans_seterr, set_error);
  add(addresses, Function::confd_data_set_timeout, set_timeout);
}

}  // namespace replay
