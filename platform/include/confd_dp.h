#ifndef CONFD_DP_H
#define CONFD_DP_H

#include "confd_lib.h"

#ifdef __cplusplus
extern "C" {
#endif

enum confd_dbname { CONFD_NO_DB = 0, CONFD_CANDIDATE = 1, CONFD_RUNNING = 2, CONFD_STARTUP = 3, CONFD_OPERATIONAL = 4 };

enum confd_trans_mode { CONFD_READ = 1, CONFD_READ_WRITE = 2 };

struct confd_daemon_ctx;
struct confd_user_info;
struct confd_tr_item;

struct confd_error {
  int code;
  char *str;
};

/* One transaction as a callback sees it. The plug-in uses four fields: thandle, the transaction handle; vcb_opaque, the
 * middleware instance that the host registered the validation callback with; validate_opaque, the name of the
 * validation point of this call; v_opaque, the private validation pointer that it clears. */
struct confd_trans_ctx {
  int fd;
  int vfd;
  struct confd_daemon_ctx *dx;
  enum confd_trans_mode mode;
  enum confd_dbname dbname;
  struct confd_user_info *uinfo;
  void *t_opaque;
  void *v_opaque;
  struct confd_error error;
  struct confd_tr_item *accumulated;
  int thandle;
  void *cb_opaque;
  void *vcb_opaque;
  int secondary_index;
  int validation_info;
  char *callpoint_opaque;
  char *validate_opaque;
};

/* Sets the text that goes with the callback's answer; printf-style. */
void confd_trans_seterr(struct confd_trans_ctx *tctx, const char *fmt, ...) CONFD_PRINTF(2, 3);

/* Gives the running callback timeout_secs seconds from now before the agent gives it up. */
int confd_data_set_timeout(struct confd_trans_ctx *tctx, int timeout_secs);

#ifdef __cplusplus
}
#endif

#endif
