#ifndef LIMID_H
#define LIMID_H

#include <stdbool.h>
#include <stddef.h>
#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/* Logical interface identifier, opaque. */
typedef uint32_t limid_t;

/* Conversions between interface name, logical identifier and ifindex; non-zero when there is none, the output then as
 * it was. */
int limid_from_intfname(const char *name, limid_t *limid);
int limid_to_intfname(limid_t limid, char *name, size_t len);
int limid_from_ifindex(int32_t ifindex, limid_t *limid);
int limid_to_ifindex(limid_t limid, int32_t *ifindex);

/* Whether the element has an interface of this name. */
bool valid_intfname(const char *name);

#ifdef __cplusplus
}
#endif

#endif
