#ifndef CONFD_LIB_H
#define CONFD_LIB_H

#include <netinet/in.h>
#include <stdint.h>

/* Marks a printf-style function for compilers that check formats: the position of the format and of the first argument
 * after it. */
#ifdef __GNUC__
#define CONFD_PRINTF(position, first) __attribute__((format(printf, position, first)))
#else
#define CONFD_PRINTF(position, first)
#endif

#ifdef __cplusplus
extern "C" {
#endif

/* Deepest key path and most keys of one list entry, the terminating C_NOEXISTS included. */
#define MAXDEPTH 25
#define MAXKEYLEN 9

#define CONFD_OK 0
#define CONFD_ERR (-1)
#define CONFD_EOF (-2)
#define CONFD_VALIDATION_WARN (-3)

#define CONFD_ERR_NOEXISTS 1
#define CONFD_ERR_BADTYPE 5
#define CONFD_ERR_BADPATH 8
#define CONFD_ERR_NOSESSION 22
#define CONFD_ERR_OS 24

/* Reason of the last failed call. */
extern int confd_errno;

typedef struct confd_buf {
  unsigned int size;
  unsigned char *ptr;
} confd_buf_t;

struct xml_tag {
  uint32_t tag;
  uint32_t ns;
};

enum confd_vtype {
  C_NOEXISTS = 1,
  C_XMLTAG = 2,
  C_STR = 4,
  C_BUF = 5,
  C_INT8 = 6,
  C_INT16 = 7,
  C_INT32 = 8,
  C_INT64 = 9,
  C_UINT8 = 10,
  C_UINT16 = 11,
  C_UINT32 = 12,
  C_UINT64 = 13,
  C_DOUBLE = 14,
  C_IPV4 = 15,
  C_IPV6 = 16,
  C_BOOL = 17,
  C_ENUM_VALUE = 28,
  C_LIST = 31,
  C_DEFAULT = 42,
  C_EMPTY = 53
};

typedef struct confd_value {
  enum confd_vtype type;
  union {
    struct xml_tag xmltag;
    confd_buf_t buf;
    char *s;
    int8_t i8;
    int16_t i16;
    int32_t i32;
    int64_t i64;
    uint8_t u8;
    uint16_t u16;
    uint32_t u32;
    uint64_t u64;
    double d;
    struct in_addr ip;
    struct in6_addr ip6;
    int boolean;
    int32_t enumvalue;
  } val;
} confd_value_t;

/* A path in reverse order: v[0] is the last element. A name is one C_XMLTAG in v[i][0]; the keys of a list entry are
 * one element, key k in v[i][k], ended by a C_NOEXISTS. */
typedef struct confd_hkeypath {
  int len;
  confd_value_t v[MAXDEPTH][MAXKEYLEN];
} confd_hkeypath_t;

enum confd_iter_ret { ITER_STOP = 1, ITER_RECURSE = 2, ITER_CONTINUE = 3, ITER_SUSPEND = 4, ITER_UP = 5 };

enum confd_iter_op {
  MOP_CREATED = 1,
  MOP_DELETED = 2,
  MOP_MODIFIED = 3,
  MOP_VALUE_SET = 4,
  MOP_MOVED_AFTER = 5,
  MOP_ATTR_SET = 6
};

/* Frees what a C_BUF (or list) value owns; does nothing for fixed-size values. */
void confd_free_value(confd_value_t *v);

/* Writes the path as text, cut to bufsiz - 1 characters; returns the full length, as snprintf does. */
int confd_pp_kpath(char *buf, int bufsiz, const confd_hkeypath_t *hkeypath);

#ifdef __cplusplus
}
#endif

#endif
