// Reads of the transaction by path.

#include <algorithm>
#include <cstdarg>
#include <cstddef>

#include "confd_maapi.h"
#include "tests/support/platform.h"

using scripted::Change;
using scripted::KeyPath;
using scripted::Path;
using scripted::Platform;
using scripted::Value;

namespace {

using iterator_t = confd_iter_ret (*)(confd_hkeypath_t *kp, confd_iter_op op, confd_value_t *oldv, confd_value_t *newv,
                                      void *state);

// A leaf's value, of the wanted type unless that is C_NOEXISTS; null with confd_errno set when there is none.
const Value *read_leaf(const Path &path, confd_vtype wanted) {
  Platform &platform = Platform::active();
  const Value *value = platform.candidate().find_leaf(path);
  if (value == nullptr || value->type == C_NOEXISTS) {
    platform.fail_with(CONFD_ERR_NOEXISTS);
    return nullptr;
  }
  if (wanted != C_NOEXISTS && value->type != wanted) {
    platform.fail_with(CONFD_ERR_BADTYPE);
    return nullptr;
  }
  return value;
}

confd_iter_ret report(const Change &change, iterator_t iter, void *state) {
  KeyPath key_path(change.key_path ? *change.key_path : Platform::active().key_path_elements(change.path));
  if (!change.new_value) return iter(key_path.get(), change.op, nullptr, nullptr, state);
  confd_value_t new_value = scripted::borrowed(*change.new_value);
  return iter(key_path.get(), change.op, nullptr, &new_value, state);
}

}  // namespace

int maapi_num_instances(int sock, int thandle, const char *fmt, ...) {
  va_list arguments;
  va_start(arguments, fmt);
  const auto path = Platform::active().enter_read("maapi_num_instances", sock, thandle, fmt, arguments);
  va_end(arguments);
  return path ? Platform::active().instances(*path) : CONFD_ERR;
}

int maapi_exists(int sock, int thandle, const char *fmt, ...) {
  va_list arguments;
  va_start(arguments, fmt);
  const auto path = Platform::active().enter_read("maapi_exists", sock, thandle, fmt, arguments);
  va_end(arguments);
  if (!path) return CONFD_ERR;
  return Platform::active().candidate().exists(*path) ? 1 : 0;
}

int maapi_get_elem(int sock, int thandle, confd_value_t *v, const char *fmt, ...) {
  va_list arguments;
  va_start(arguments, fmt);
  const auto path = Platform::active().enter_read("maapi_get_elem", sock, thandle, fmt, arguments);
  va_end(arguments);
  const Value *value = path ? read_leaf(*path, C_NOEXISTS) : nullptr;
  if (value == nullptr) return CONFD_ERR;
  Platform::active().hand_out(*value, v);
  return CONFD_OK;
}

int maapi_get_u_int32_elem(int sock, int thandle, uint32_t *rval, const char *fmt, ...) {
  va_list arguments;
  va_start(arguments, fmt);
  const auto path = Platform::active().enter_read("maapi_get_u_int32_elem", sock, thandle, fmt, arguments);
  va_end(arguments);
  const Value *value = path ? read_leaf(*path, C_UINT32) : nullptr;
  if (value == nullptr) return CONFD_ERR;
  *rval = scripted::borrowed(*value).val.u32;
  return CONFD_OK;
}

int maapi_get_enum_value_elem(int sock, int thandle, int32_t *rval, const char *fmt, ...) {
  va_list arguments;
  va_start(arguments, fmt);
  const auto path = Platform::active().enter_read("maapi_get_enum_value_elem", sock, thandle, fmt, arguments);
  va_end(arguments);
  const Value *value = path ? read_leaf(*path, C_ENUM_VALUE) : nullptr;
  if (value == nullptr) return CONFD_ERR;
  *rval = scripted::borrowed(*value).val.enumvalue;
  return CONFD_OK;
}

int maapi_get_object(int sock, int thandle, confd_value_t *values, int n, const char *fmt, ...) {
  va_list arguments;
  va_start(arguments, fmt);
  const auto path = Platform::active().enter_read("maapi_get_object", sock, thandle, fmt, arguments);
  va_end(arguments);
  if (!path) return CONFD_ERR;
  const scripted::Values *object = Platform::active().candidate().find_object(*path);
  if (object == nullptr) return Platform::active().fail_with(CONFD_ERR_NOEXISTS);
  const std::size_t count = std::min(object->size(), static_cast<std::size_t>(n));
  for (std::size_t i = 0; i < count; ++i) Platform::active().hand_out((*object)[i], &values[i]);
  return static_cast<int>(object->size());
}

int maapi_keypath_diff_iterate(int sock, int thandle, iterator_t iter, int /*flags*/, void *initstate,
                               const char *fmtpath, ...) {
  va_list arguments;
  va_start(arguments, fmtpath);
  const auto path = Platform::active().enter_read("maapi_keypath_diff_iterate", sock, thandle, fmtpath, arguments);
  va_end(arguments);
  if (!path) return CONFD_ERR;

  const Path *skipped = nullptr;
  for (const Change &change : Platform::active().changes()) {
    if (!scripted::is_at_or_below(change.path, *path)) continue;
    if (skipped != nullptr && scripted::is_at_or_below(change.path, *skipped)) continue;
    const confd_iter_ret answer = report(change, iter, initstate);
    if (answer == ITER_STOP) return CONFD_OK;
    if (answer == ITER_CONTINUE) skipped = &change.path;
    if (answer != ITER_CONTINUE && answer != ITER_RECURSE) Platform::active().misuse("an unknown iterator answer");
  }
  return CONFD_OK;
}
