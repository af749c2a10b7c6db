#ifndef CONFD_CDB_H
#define CONFD_CDB_H

#include "confd_lib.h"

#ifdef __cplusplus
extern "C" {
#endif

enum cdb_db_type { CDB_RUNNING = 1, CDB_STARTUP = 2, CDB_OPERATIONAL = 3, CDB_PRE_COMMIT_RUNNING = 4 };
typedef enum cdb_db_type cdb_db_type;

/* Number of entries of a list in the session's datastore, or -1. */
int cdb_num_instances(int sock, const char *fmt, ...) CONFD_PRINTF(2, 3);

/* Reads at most n values from each of exactly nobj entries from index ix on (0-based, list order). Asking past the end
 * is an error and fills nothing. */
int cdb_get_objects(int sock, confd_value_t *values, int n, int ix, int nobj, const char *fmt, ...) CONFD_PRINTF(6, 7);

#ifdef __cplusplus
}
#endif

#endif
