#ifndef QNCONFD_H
#define QNCONFD_H

#include <stdint.h>

#include "confd_cdb.h"

#ifdef __cplusplus
extern "C" {
#endif

/* The MAAPI socket of the daemon that a middleware instance stands for. */
int32_t qnconfd_maapi_socket_get(void *middleware);

#ifdef __cplusplus

class QnConfdInterface;

QnConfdInterface *qnconfd_instance_get(void *middleware);

}  // extern "C"

/* A CDB read session: started by the constructor, ended by the destructor. */
class QnConfdCdbSessionBase {
 public:
  QnConfdCdbSessionBase(QnConfdInterface *instance, cdb_db_type db, bool);
  virtual ~QnConfdCdbSessionBase();
  QnConfdCdbSessionBase(const QnConfdCdbSessionBase &) = delete;
  QnConfdCdbSessionBase &operator=(const QnConfdCdbSessionBase &) = delete;

  int Socket() const;

 private:
  int socket_;
};

#endif

#endif
