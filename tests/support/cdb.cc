// The running configuration, read through a session.

#include <cstdarg>
#include <cstddef>
#include <string>

#include "confd_cdb.h"
#include "qnconfd.h"
#include "tests/support/platform.h"

using scripted::Platform;
using scripted::Values;

QnConfdInterface *qnconfd_instance_get(void *middleware) {
  if (Platform::active().enter("qnconfd_instance_get")) return nullptr;
  return static_cast<QnConfdInterface *>(middleware);
}

QnConfdCdbSessionBase::QnConfdCdbSessionBase(QnConfdInterface *instance, cdb_db_type db, bool option)
    : socket_(Platform::active().start_session(instance, db, option)) {}

QnConfdCdbSessionBase::~QnConfdCdbSessionBase() { Platform::active().end_session(socket_); }

int QnConfdCdbSessionBase::Socket() const { return socket_; }

int cdb_num_instances(int sock, const char *fmt, ...) {
  Platform &platform = Platform::active();
  va_list arguments;
  va_start(arguments, fmt);
  const auto path = platform.enter_cdb_read("cdb_num_instances", sock, fmt, arguments);
  va_end(arguments);
  if (!path) return CONFD_ERR;
  const scripted::List *list = platform.running().find_list(*path);
  return list == nullptr ? 0 : static_cast<int>(list->rows.size());
}

int cdb_get_objects(int sock, confd_value_t *values, int n, int ix, int nobj, const char *fmt, ...) {
  Platform &platform = Platform::active();
  const std::string detail = " " + std::to_string(nobj) + "x" + std::to_string(n) + " from " + std::to_string(ix);
  va_list arguments;
  va_start(arguments, fmt);
  const auto path = platform.enter_cdb_read("cdb_get_objects", sock, fmt, arguments, detail);
  va_end(arguments);
  if (!path) return CONFD_ERR;

  const scripted::List *list = platform.running().find_list(*path);
  const int size = list == nullptr ? 0 : static_cast<int>(list->rows.size());
  if (ix < 0 || nobj < 0 || ix + nobj > size) return platform.fail_with(CONFD_ERR_NOEXISTS);
  for (int i = 0; i < nobj; ++i) {
    const Values &row = list->rows[static_cast<std::size_t>(ix + i)];
    for (int k = 0; k < n && static_cast<std::size_t>(k) < row.size(); ++k) {
      platform.hand_out(row[static_cast<std::size_t>(k)], &values[i * n + k]);
    }
  }
  return CONFD_OK;
}
