// What a transaction changes.

#include <cstdarg>

#include "confd_maapi.h"
#include "host/seam/agent.h"
#include "host/seam/agent_paths.h"
#include "host/seam/agent_values.h"
#include "host/seam/resolve.h"
#include "host/seam/session_state.h"

namespace host {

namespace {

using element::Change;
using element::ChangeKind;
using Iterator = confd_iter_ret (*)(confd_hkeypath_t *, confd_iter_op, confd_value_t *, confd_value_t *, void *);

confd_iter_op operation_of(ChangeKind kind) {
  switch (kind) {
    case ChangeKind::created:
      return MOP_CREATED;
    case ChangeKind::deleted:
      return MOP_DELETED;
    case ChangeKind::value_set:
      return MOP_VALUE_SET;
    case ChangeKind::modified:
    case ChangeKind::below:
      break;
  }
  return MOP_MODIFIED;
}

/// Reports changes from the top down, as long as the caller's function wants to hear of them.
class Report {
 public:
  Report(Iterator iterator, void *state) : iterator_(iterator), state_(state) {}

  void enter(const Change &change) {
    if (change.is_entry()) {
      path_.push(*change.schema, change.keys());
    } else {
      path_.push(*change.schema);
    }
  }

  /// False once the caller has had enough. A path of changes that are no news of their own costs no call.
  bool below(const Change &change) {
    for (const Change &child : change.children) {
      enter(child);
      const bool go_on = change_and_below(child);
      path_.pop();
      if (!go_on) return false;
    }
    return true;
  }

  bool change_and_below(const Change &change) {
    if (change.kind == ChangeKind::below) return below(change);
    switch (tell(change)) {
      case ITER_RECURSE:
        return below(change);
      case ITER_CONTINUE:
        return true;
      default:
        return false;
    }
  }

 private:
  confd_iter_ret tell(const Change &change) {
    path_.write(key_path_);
    if (change.kind != ChangeKind::value_set) {
      return iterator_(&key_path_, operation_of(change.kind), nullptr, nullptr, state_);
    }
    confd_value_t value = borrowed_value(change.after->value, *change.schema);
    return iterator_(&key_path_, MOP_VALUE_SET, nullptr, &value, state_);
  }

  Iterator iterator_;
  void *state_;
  KeyPath path_;
  confd_hkeypath_t key_path_;
};

[[gnu::format(printf, 4, 0)]] int iterate(HostSession &session, Iterator iterator, void *state, const char *format,
                                          std::va_list arguments) {
  ResolvedPath path;
  const int reason = resolve_path(session, SeamFunction::maapi_keypath_diff_iterate, path, format, arguments);
  if (reason != 0) return fail(reason);
  const element::Transaction &transaction = *session.transaction();
  Report report(iterator, state);
  if (path.begin() == path.end()) {
    report.below(transaction.changes);
    return CONFD_OK;
  }
  const ChangeTrail trail = locate(transaction.changes, path, session.state().hints);
  if (trail.size() == 0) return CONFD_OK;
  for (const Change *change : trail) report.enter(*change);
  report.change_and_below(*trail[trail.size() - 1]);
  return CONFD_OK;
}

}  // namespace

}  // namespace host

int maapi_keypath_diff_iterate(int sock, int thandle,
                               confd_iter_ret (*iter)(confd_hkeypath_t *kp, confd_iter_op op, confd_value_t *oldv,
                                                      confd_value_t *newv, void *state),
                               int /*flags*/, void *initstate, const char *fmtpath, ...) {
  host::HostSession *session = host::enter_transaction(host::SeamFunction::maapi_keypath_diff_iterate, sock, thandle);
  if (session == nullptr) return CONFD_ERR;

  std::va_list arguments;
  va_start(arguments, fmtpath);
  const int result = host::iterate(*session, iter, initstate, fmtpath, arguments);
  va_end(arguments);
  return result;
}
