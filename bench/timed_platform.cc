#include "bench/timed_platform.h"

#include <dlfcn.h>

#include <array>
#include <cstdarg>
#include <cstdio>
#include <string>

#include "bench/cpu_time.h"
#include "confd_cdb.h"
#include "confd_lib.h"
#include "confd_maapi.h"
#include "limid.h"
#include "qnmw_trace.h"

namespace bench {
namespace {

PlatformTime spent;

class Timed {
 public:
  Timed() = default;
  ~Timed() {
    spent.seconds += cpu_seconds() - start_;
    ++spent.timed_calls;
  }
  Timed(const Timed &) = delete;
  Timed &operator=(const Timed &) = delete;

 private:
  double start_ = cpu_seconds();
};

/// The element's own function of this name.
template <auto Function>
auto *next(const char *name) {
  static const auto found = reinterpret_cast<decltype(Function)>(::dlsym(RTLD_NEXT, name));
  return found;
}

/// A path with its arguments filled in. Keys with blanks or braces would be read otherwise than before; the measured
/// commits have none.
class FilledPath {
 public:
  FilledPath(const char *format, std::va_list arguments) {
    std::vsnprintf(text_.data(), text_.size(), format, arguments);
  }

  const char *text() const { return text_.data(); }

 private:
  std::array<char, 1024> text_;
};

}  // namespace

PlatformTime platform_time() { return spent; }

double clock_reading_seconds() {
  constexpr int kReadings = 10000;
  return cpu_seconds_of([] {
           for (int i = 0; i < kReadings; ++i) cpu_seconds();
         }) /
         kReadings;
}

}  // namespace bench

using bench::FilledPath;
using bench::next;
using bench::Timed;

int maapi_num_instances(int sock, int thandle, const char *fmt, ...) {
  const Timed timed;
  std::va_list arguments;
  va_start(arguments, fmt);
  const FilledPath path(fmt, arguments);
  va_end(arguments);
  return next<&maapi_num_instances>("maapi_num_instances")(sock, thandle, "%s", path.text());
}

int maapi_exists(int sock, int thandle, const char *fmt, ...) {
  const Timed timed;
  std::va_list arguments;
  va_start(arguments, fmt);
  const FilledPath path(fmt, arguments);
  va_end(arguments);
  return next<&maapi_exists>("maapi_exists")(sock, thandle, "%s", path.text());
}

int maapi_init_cursor(int sock, int thandle, maapi_cursor *mc, const char *fmt, ...) {
  const Timed timed;
  std::va_list arguments;
  va_start(arguments, fmt);
  const FilledPath path(fmt, arguments);
  va_end(arguments);
  return next<&maapi_init_cursor>("maapi_init_cursor")(sock, thandle, mc, "%s", path.text());
}

int maapi_get_elem(int sock, int thandle, confd_value_t *v, const char *fmt, ...) {
  const Timed timed;
  std::va_list arguments;
  va_start(arguments, fmt);
  const FilledPath path(fmt, arguments);
  va_end(arguments);
  return next<&maapi_get_elem>("maapi_get_elem")(sock, thandle, v, "%s", path.text());
}

int maapi_get_u_int32_elem(int sock, int thandle, uint32_t *rval, const char *fmt, ...) {
  const Timed timed;
  std::va_list arguments;
  va_start(arguments, fmt);
  const FilledPath path(fmt, arguments);
  va_end(arguments);
  return next<&maapi_get_u_int32_elem>("maapi_get_u_int32_elem")(sock, thandle, rval, "%s", path.text());
}

int maapi_get_enum_value_elem(int sock, int thandle, int32_t *rval, const char *fmt, ...) {
  const Timed timed;
  std::va_list arguments;
  va_start(arguments, fmt);
  const FilledPath path(fmt, arguments);
  va_end(arguments);
  return next<&maapi_get_enum_value_elem>("maapi_get_enum_value_elem")(sock, thandle, rval, "%s", path.text());
}

int maapi_get_object(int sock, int thandle, confd_value_t *values, int n, const char *fmt, ...) {
  const Timed timed;
  std::va_list arguments;
  va_start(arguments, fmt);
  const FilledPath path(fmt, arguments);
  va_end(arguments);
  return next<&maapi_get_object>("maapi_get_object")(sock, thandle, values, n, "%s", path.text());
}

int maapi_keypath_diff_iterate(int sock, int thandle,
                               confd_iter_ret (*iter)(confd_hkeypath_t *kp, confd_iter_op op, confd_value_t *oldv,
                                                      confd_value_t *newv, void *state),
                               int flags, void *initstate, const char *fmtpath, ...) {
  const Timed timed;
  std::va_list arguments;
  va_start(arguments, fmtpath);
  const FilledPath path(fmtpath, arguments);
  va_end(arguments);
  return next<&maapi_keypath_diff_iterate>("maapi_keypath_diff_iterate")(sock, thandle, iter, flags, initstate, "%s",
                                                                         path.text());
}

int cdb_num_instances(int sock, const char *fmt, ...) {
  const Timed timed;
  std::va_list arguments;
  va_start(arguments, fmt);
  const FilledPath path(fmt, arguments);
  va_end(arguments);
  return next<&cdb_num_instances>("cdb_num_instances")(sock, "%s", path.text());
}

int cdb_get_objects(int sock, confd_value_t *values, int n, int ix, int nobj, const char *fmt, ...) {
  const Timed timed;
  std::va_list arguments;
  va_start(arguments, fmt);
  const FilledPath path(fmt, arguments);
  va_end(arguments);
  return next<&cdb_get_objects>("cdb_get_objects")(sock, values, n, ix, nobj, "%s", path.text());
}

// The plug-in traces one text.
void zlog(zlog_category_t *category, const char *file, size_t filelen, const char *func, size_t funclen, long line,
          int level, const char *format, ...) {
  const Timed timed;
  std::va_list arguments;
  va_start(arguments, format);
  const char *text = va_arg(arguments, const char *);
  va_end(arguments);
  next<&zlog>("zlog")(category, file, filelen, func, funclen, line, level, "\n%s", text);
}

int maapi_get_next(maapi_cursor *mc) {
  const Timed timed;
  return next<&maapi_get_next>("maapi_get_next")(mc);
}

int maapi_find_next(maapi_cursor *mc, confd_find_next_type type, confd_value_t *inkeys, int n_inkeys) {
  const Timed timed;
  return next<&maapi_find_next>("maapi_find_next")(mc, type, inkeys, n_inkeys);
}

int maapi_get_objects(maapi_cursor *mc, confd_value_t *values, int n, int *nobj) {
  const Timed timed;
  return next<&maapi_get_objects>("maapi_get_objects")(mc, values, n, nobj);
}

void maapi_destroy_cursor(maapi_cursor *mc) {
  const Timed timed;
  next<&maapi_destroy_cursor>("maapi_destroy_cursor")(mc);
}

void confd_free_value(confd_value_t *v) {
  const Timed timed;
  next<&confd_free_value>("confd_free_value")(v);
}

int limid_from_intfname(const char *name, limid_t *limid) {
  const Timed timed;
  return next<&limid_from_intfname>("limid_from_intfname")(name, limid);
}

int limid_to_intfname(limid_t limid, char *name, size_t len) {
  const Timed timed;
  return next<&limid_to_intfname>("limid_to_intfname")(limid, name, len);
}

int limid_from_ifindex(int32_t ifindex, limid_t *limid) {
  const Timed timed;
  return next<&limid_from_ifindex>("limid_from_ifindex")(ifindex, limid);
}

int limid_to_ifindex(limid_t limid, int32_t *ifindex) {
  const Timed timed;
  return next<&limid_to_ifindex>("limid_to_ifindex")(limid, ifindex);
}

bool valid_intfname(const char *name) {
  const Timed timed;
  return next<&valid_intfname>("valid_intfname")(name);
}
