#ifndef CONFD_MAAPI_H
#define CONFD_MAAPI_H

#include "confd_lib.h"

#ifdef __cplusplus
extern "C" {
#endif

/* n is the number of keys of the entry the cursor stands on, 0 when it stands on none. What follows keys belongs to the
 * host. */
struct maapi_cursor {
  int n;
  confd_value_t keys[MAXKEYLEN];
  int sock;
  int thandle;
  void *host;
};

enum confd_find_next_type { CONFD_FIND_NEXT = 0, CONFD_FIND_SAME_OR_NEXT = 1 };

/* Number of entries of a list, or -1. */
int maapi_num_instances(int sock, int thandle, const char *fmt, ...) CONFD_PRINTF(3, 4);

/* 1, 0, or -1. */
int maapi_exists(int sock, int thandle, const char *fmt, ...) CONFD_PRINTF(3, 4);

/* Puts a cursor before the first entry of a list; does not move it. */
int maapi_init_cursor(int sock, int thandle, struct maapi_cursor *mc, const char *fmt, ...) CONFD_PRINTF(4, 5);

/* Moves to the next entry and fills n and keys; past the end n is 0. */
int maapi_get_next(struct maapi_cursor *mc);

/* Moves to the first entry after the given keys, or to the entry with exactly those keys in the same-or-next mode. */
int maapi_find_next(struct maapi_cursor *mc, enum confd_find_next_type type, confd_value_t *inkeys, int n_inkeys);

void maapi_destroy_cursor(struct maapi_cursor *mc);

int maapi_get_elem(int sock, int thandle, confd_value_t *v, const char *fmt, ...) CONFD_PRINTF(4, 5);
int maapi_get_u_int32_elem(int sock, int thandle, uint32_t *rval, const char *fmt, ...) CONFD_PRINTF(4, 5);
int maapi_get_enum_value_elem(int sock, int thandle, int32_t *rval, const char *fmt, ...) CONFD_PRINTF(4, 5);

/* Reads at most n values of one entry or container; returns how many it has, or -1. */
int maapi_get_object(int sock, int thandle, confd_value_t *values, int n, const char *fmt, ...) CONFD_PRINTF(5, 6);

/* Reads at most n values from each of at most *nobj entries after the cursor; returns the values of an entry, or -1. */
int maapi_get_objects(struct maapi_cursor *mc, confd_value_t *values, int n, int *nobj);

/* Calls iter for every change of the transaction at or below the path. */
int maapi_keypath_diff_iterate(int sock, int thandle,
                               enum confd_iter_ret (*iter)(confd_hkeypath_t *kp, enum confd_iter_op op,
                                                           confd_value_t *oldv, confd_value_t *newv, void *state),
                               int flags, void *initstate, const char *fmtpath, ...) CONFD_PRINTF(6, 7);

#ifdef __cplusplus
}
#endif

#endif
