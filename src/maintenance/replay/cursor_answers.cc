// Answers of cursors, and the walk through a transaction's changes.

#include "confd_maapi.h"
#include "maintenance/hooks/agent_values.h"
#include "maintenance/replay/answers.h"
#include "maintenance/replay/player.h"

namespace replay {

namespace {

using recording::Call;
using recording::Function;
using recording::HandleKind;

recording::Handle cursor(const maapi_cursor *mc) { return player().handles().known(HandleKind::cursor, mc); }

/// Places the cursor where it stood. Its keys are the recording's: they stay what they are for as long as it lives.
void place(maapi_cursor &mc, Outputs &outputs) {
  mc.n = static_cast<int>(outputs.take<std::int64_t>());
  for (int i = 0; i < mc.n && i < MAXKEYLEN; ++i) mc.keys[i] = hooks::borrowed(outputs.take<recording::AgentValue>());
}

int answer_move(maapi_cursor &mc, const Call &call) {
  Outputs outputs(call);
  place(mc, outputs);
  return result_of(call);
}

int init_cursor(int sock, int thandle, maapi_cursor *mc, const char *fmt, ...) {
  HOOKS_FORMAT_ARGUMENTS(arguments, fmt);
  const recording::Handle handle = player().handles().open(HandleKind::cursor, mc);
  return answer_move(*mc, player().answer(Function::maapi_init_cursor, sock, thandle, handle, arguments));
}

int get_next(maapi_cursor *mc) { return answer_move(*mc, player().answer(Function::maapi_get_next, cursor(mc))); }

int find_next(maapi_cursor *mc, confd_find_next_type type, confd_value_t *inkeys, int n_inkeys) {
  const hooks::Values keys{inkeys, n_inkeys};
  return answer_move(*mc,
                     player().answer(Function::maapi_find_next, cursor(mc), static_cast<std::int32_t>(type), keys));
}

int get_objects(maapi_cursor *mc, confd_value_t *values, int n, int *nobj) {
  const long room = long{n} * *nobj;
  const Call &call = player().answer(Function::maapi_get_objects, cursor(mc), n, *nobj);
  Outputs outputs(call);
  *nobj = static_cast<int>(outputs.take<std::int64_t>());
  place(*mc, outputs);
  outputs.take_owned(values, room);
  return result_of(call);
}

void destroy_cursor(maapi_cursor *mc) {
  const Call &call = player().answer(Function::maapi_destroy_cursor, cursor(mc));
  mc->n = static_cast<int>(Outputs(call).take<std::int64_t>());
}

using Iterator = confd_iter_ret(confd_hkeypath_t *, confd_iter_op, confd_value_t *, confd_value_t *, void *);

/// One change, told to the library's function.
void tell_change(const recording::Callback &callback, Iterator *iterator, void *state) {
  confd_hkeypath_t path{};
  path.len = static_cast<int>(std::min<std::size_t>(callback.path.size(), MAXDEPTH));
  for (std::size_t i = 0; i < static_cast<std::size_t>(path.len); ++i) write_element(callback.path[i], path.v[i]);
  confd_value_t old_value{};
  confd_value_t new_value{};
  if (callback.old_value) old_value = hooks::borrowed(*callback.old_value);
  if (callback.new_value) new_value = hooks::borrowed(*callback.new_value);
  player().enter(callback);
  const confd_iter_ret answer =
      iterator(&path, static_cast<confd_iter_op>(callback.operation), callback.old_value ? &old_value : nullptr,
               callback.new_value ? &new_value : nullptr, state);
  player().leave(callback, answer);
}

int diff_iterate(int sock, int thandle, Iterator *iter, int flags, void *initstate, const char *fmtpath, ...) {
  HOOKS_FORMAT_ARGUMENTS(arguments, fmtpath);
  const Call &call = player().answer(Function::maapi_keypath_diff_iterate, sock, thandle, flags, arguments);
  for (const recording::Callback &callback : call.callbacks) tell_change(callback, iter, initstate);
  return result_of(call);
}

}  // namespace

void add_cursor_answers(hooks::Addresses &addresses) {
  add(addresses, Function::maapi_init_cursor, init_cursor);
  add(addresses, Function::maapi_get_next, get_next);
  add(addresses, Function::maapi_find_next, find_next);
  add(addresses, Function::maapi_get_objects, get_objects);
  add(addresses, Function::maapi_destroy_cursor, destroy_cursor);
  add(addresses, Function::maapi_keypath_diff_iterate, diff_iterate);
}

}  // namespace replay
