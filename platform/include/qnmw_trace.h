#ifndef QNMW_TRACE_H
#define QNMW_TRACE_H

#include <stddef.h>

/* As CONFD_PRINTF is for the agent's functions. */
#ifdef __GNUC__
#define QNMW_PRINTF(position, first) __attribute__((format(printf, position, first)))
#else
#define QNMW_PRINTF(position, first)
#endif

#ifdef __cplusplus
extern "C" {
#endif

typedef struct zlog_category_s zlog_category_t;

zlog_category_t *qnmw_trace_register_category(const char *name);

void zlog(zlog_category_t *category, const char *file, size_t filelen, const char *func, size_t funclen, long line,
          int level, const char *format, ...) QNMW_PRINTF(8, 9);

#ifdef __cplusplus
}
#endif

#endif
