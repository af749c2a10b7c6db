// Cursors, and the walk through a transaction's changes.

#include "confd_maapi.h"
#include "maintenance/recorder/output_values.h"
#include "maintenance/recorder/recorded_call.h"
#include "maintenance/recorder/replacements.h"

namespace recorder {

namespace {

using recording::Function;
using recording::HandleKind;

recording::Handle cursor(const maapi_cursor *mc) { return tape().handles().known(HandleKind::cursor, mc); }

/// Where the cursor stands: how many keys, and the keys.
void record_place(RecordedCall &call, const maapi_cursor &mc) {
  call.outputs(mc.n, hooks::Values{mc.keys, mc.n < MAXKEYLEN ? mc.n : MAXKEYLEN});
}

int init_cursor(int sock, int thandle, maapi_cursor *mc, const char *fmt, ...) {
  HOOKS_FORMAT_ARGUMENTS(arguments, fmt);
  const recording::Handle handle =
      tape().is_running() ? tape().handles().open(HandleKind::cursor, mc) : recording::Handle{};
  RecordedCall call(Function::maapi_init_cursor, sock, thandle, handle, arguments);
  const auto platform = original<decltype(maapi_init_cursor)>(Function::maapi_init_cursor);
  const int result = arguments.pass_on(platform, sock, thandle, mc, fmt);
  call.answered_by_agent(result);
  record_place(call, *mc);
  call.done();
  return result;
}

int get_next(maapi_cursor *mc) {
  RecordedCall call(Function::maapi_get_next, cursor(mc));
  const int result = original<decltype(maapi_get_next)>(Function::maapi_get_next)(mc);
  call.answered_by_agent(result);
  record_place(call, *mc);
  call.done();
  return result;
}

int find_next(maapi_cursor *mc, confd_find_next_type type, confd_value_t *inkeys, int n_inkeys) {
  RecordedCall call(Function::maapi_find_next, cursor(mc), static_cast<std::int32_t>(type),
                    hooks::Values{inkeys, n_inkeys});
  const auto platform = original<decltype(maapi_find_next)>(Function::maapi_find_next);
  const int result = platform(mc, type, inkeys, n_inkeys);
  call.answered_by_agent(result);
  record_place(call, *mc);
  call.done();
  return result;
}

int get_objects(maapi_cursor *mc, confd_value_t *values, int n, int *nobj) {
  RecordedCall call(Function::maapi_get_objects, cursor(mc), n, *nobj);
  OutputValues written(call.is_recording(), values, long{n} * *nobj);
  const auto platform = original<decltype(maapi_get_objects)>(Function::maapi_get_objects);
  const int result = platform(mc, values, n, nobj);
  call.answered_by_agent(result);
  call.outputs(*nobj);
  record_place(call, *mc);
  written.record();
  call.done();
  return result;
}

// A cursor that was never initialised stands for nothing.
void destroy_cursor(maapi_cursor *mc) {
  RecordedCall call(Function::maapi_destroy_cursor, cursor(mc));
  original<decltype(maapi_destroy_cursor)>(Function::maapi_destroy_cursor)(mc);
  call.answered();
  call.outputs(mc->n);
  call.done();
}

using Iterator = confd_iter_ret(confd_hkeypath_t *, confd_iter_op, confd_value_t *, confd_value_t *, void *);

/// The library's function that is told of changes, and its state.
struct Listener {
  Iterator *function;
  void *state;
};

void record_value(const confd_value_t *value) {
  if (value == nullptr) return tape().writer().no_value();
  if (!hooks::write(tape().writer(), *value)) tape().give_up("a changed value is of a type whose content is not known");
}

confd_iter_ret tell(confd_hkeypath_t *kp, confd_iter_op op, confd_value_t *oldv, confd_value_t *newv, void *state) {
  const Listener &listener = *static_cast<Listener *>(state);
  if (!tape().is_running()) return listener.function(kp, op, oldv, newv, listener.state);
  recording::Writer &writer = tape().writer();
  writer.start_callback();
  if (!hooks::write(writer, *kp)) tape().give_up("a path holds a value of a type whose content is not known");
  writer.callback_change(op);
  record_value(oldv);
  record_value(newv);
  const confd_iter_ret answer = listener.function(kp, op, oldv, newv, listener.state);
  writer.end_callback(answer);
  return answer;
}

int diff_iterate(int sock, int thandle, Iterator *iter, int flags, void *initstate, const char *fmtpath, ...) {
  HOOKS_FORMAT_ARGUMENTS(arguments, fmtpath);
  RecordedCall call(Function::maapi_keypath_diff_iterate, sock, thandle, flags, arguments);
  Listener listener{iter, initstate};
  const auto platform = original<decltype(maapi_keypath_diff_iterate)>(Function::maapi_keypath_diff_iterate);
  void *const state = &listener;
  const int result = arguments.pass_on(platform, sock, thandle, &tell, flags, state, fmtpath);
  call.answered_by_agent(result);
  call.done();
  return result;
}

}  // namespace

void add_cursors(hooks::Addresses &replacements) {
  add(replacements, Function::maapi_init_cursor, init_cursor);
  add(replacements, Function::maapi_get_next, get_next);
  add(replacements, Function::maapi_find_next, find_next);
  add(replacements, Function::maapi_get_objects, get_objects);
  add(replacements, Function::maapi_destroy_cursor, destroy_cursor);
  add(replacements, Function::maapi_keypath_diff_iterate, diff_iterate);
}

}  // namespace recorder
