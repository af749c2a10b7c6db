#include "config_validate_vpls/qnconfd_cdb_session.h"

QnConfdCdbSession::QnConfdCdbSession(QnConfdInterface *instance, cdb_db_type db)
    : QnConfdCdbSessionBase(instance, db, true) {}

QnConfdCdbSession::~QnConfdCdbSession() = default;
