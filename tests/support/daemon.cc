// The transaction's texts and time-out, values, the middleware's socket, the trace.

#include <array>
#include <cstdarg>
#include <cstddef>
#include <cstdio>
#include <map>
#include <string>

#include "confd_dp.h"
#include "confd_lib.h"
#include "qnconfd.h"
#include "qnmw_trace.h"
#include "tests/support/platform.h"

using scripted::Platform;

struct zlog_category_s {
  std::string name;
};

namespace {

[[gnu::format(printf, 1, 0)]] std::string format_text(const char *format, va_list arguments) {
  va_list again;
  va_copy(again, arguments);
  const int length = std::vsnprintf(nullptr, 0, format, again);
  va_end(again);
  std::string text(static_cast<std::size_t>(length), '\0');
  std::vsnprintf(text.data(), text.size() + 1, format, arguments);
  return text;
}

std::string element_text(const confd_value_t *element) {
  if (element[0].type == C_XMLTAG) return '/' + scripted::name_of(element[0].val.xmltag.tag);
  std::string keys;
  for (int k = 0; k < MAXKEYLEN && element[k].type != C_NOEXISTS; ++k) {
    keys += (keys.empty() ? "" : " ") + scripted::to_text(scripted::from_platform(element[k]));
  }
  return '{' + keys + '}';
}

}  // namespace

void confd_trans_seterr(confd_trans_ctx *tctx, const char *fmt, ...) {
  va_list arguments;
  va_start(arguments, fmt);
  std::string text = format_text(fmt, arguments);
  va_end(arguments);
  Platform &platform = Platform::active();
  platform.enter("confd_trans_seterr", text);
  if (tctx != &platform.context()) platform.misuse("confd_trans_seterr on another transaction");
  platform.add_error(std::move(text));
}

int confd_data_set_timeout(confd_trans_ctx *tctx, int timeout_secs) {
  Platform &platform = Platform::active();
  if (platform.enter("confd_data_set_timeout", std::to_string(timeout_secs))) return CONFD_ERR;
  if (tctx != &platform.context()) platform.misuse("confd_data_set_timeout on another transaction");
  platform.add_timeout(timeout_secs);
  return CONFD_OK;
}

void confd_free_value(confd_value_t *v) {
  Platform::active().enter("confd_free_value");
  Platform::active().take_back(v);
}

int confd_pp_kpath(char *buf, int bufsiz, const confd_hkeypath_t *hkeypath) {
  std::string text;
  for (int i = hkeypath->len - 1; i >= 0; --i) text += element_text(hkeypath->v[i]);
  if (Platform::active().enter("confd_pp_kpath", text)) return CONFD_ERR;
  return std::snprintf(buf, static_cast<std::size_t>(bufsiz), "%s", text.c_str());
}

int32_t qnconfd_maapi_socket_get(void *middleware) {
  Platform &platform = Platform::active();
  if (platform.enter("qnconfd_maapi_socket_get") || middleware != platform.middleware()) return -1;
  return platform.socket();
}

zlog_category_t *qnmw_trace_register_category(const char *name) {
  if (Platform::active().enter("qnmw_trace_register_category", name)) return nullptr;
  static std::map<std::string, zlog_category_s> categories;
  return &categories.try_emplace(name, zlog_category_s{name}).first->second;
}

void zlog(zlog_category_t *category, const char *file, size_t filelen, const char *func, size_t funclen, long line,
          int level, const char *format, ...) {
  va_list arguments;
  va_start(arguments, format);
  std::string text = format_text(format, arguments);
  va_end(arguments);
  Platform::active().enter("zlog");
  Platform::active().add_trace(
      {category == nullptr ? "" : category->name, file, filelen, func, funclen, line, level, std::move(text)});
}
