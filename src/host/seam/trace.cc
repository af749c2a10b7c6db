// The trace layer: every trace call is kept, whatever its level.

#include <algorithm>
#include <cstdarg>

#include "host/seam/formatted_text.h"
#include "host/seam/host_session.h"
#include "host/seam/session_state.h"
#include "qnmw_trace.h"

using host::SeamFunction;

zlog_category_t *qnmw_trace_register_category(const char *name) {
  host::HostSession *session = host::HostSession::active();
  if (session == nullptr || session->enter(SeamFunction::qnmw_trace_register_category)) return nullptr;

  auto &categories = session->state().trace_categories;
  const auto known = std::find_if(categories.begin(), categories.end(),
                                  [name](const zlog_category_s &category) { return category.name == name; });
  return known != categories.end() ? &*known : &categories.emplace_back(zlog_category_s{name});
}

// Without a category there is nowhere to write to.
[[gnu::format(printf, 8, 9)]] void zlog(zlog_category_t *category, const char * /*file*/, size_t /*filelen*/,
                                        const char * /*func*/, size_t /*funclen*/, long /*line*/, int /*level*/,
                                        const char *format, ...) {
  host::HostSession *session = host::HostSession::active();
  if (session == nullptr) return;
  session->enter(SeamFunction::zlog);
  if (category == nullptr) return;

  std::va_list arguments;
  va_start(arguments, format);
  session->statistics.trace.push_back(category->name + ": " + host::formatted_text(format, arguments));
  va_end(arguments);
}
