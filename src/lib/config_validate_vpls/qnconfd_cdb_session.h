#ifndef CONFIG_VALIDATE_VPLS_QNCONFD_CDB_SESSION_H
#define CONFIG_VALIDATE_VPLS_QNCONFD_CDB_SESSION_H

#include "qnconfd.h"

/// A read session on one CDB datastore, for as long as the object lives; its socket is Socket().
class QnConfdCdbSession : public QnConfdCdbSessionBase {
 public:
  QnConfdCdbSession(QnConfdInterface *instance, cdb_db_type db);
  ~QnConfdCdbSession() override;
};

#endif
