// Pins the numbers, offsets and signatures of the seam that the plug-in's binary relies on. It compiles against any
// platform header directory, so that a build against an SDK that differs stops here and names the difference.

#include <cstddef>
#include <type_traits>

#include "confd_cdb.h"
#include "confd_dp.h"
#include "confd_lib.h"
#include "confd_maapi.h"
#include "fm.h"
#include "limid.h"
#include "qnconfd.h"
#include "qnmw_trace.h"

static_assert(MAXDEPTH == 25, "the tag guard looks at 25 path elements");
static_assert(MAXKEYLEN == 9, "a path element holds eight keys and their end");

static_assert(CONFD_OK == 0 && CONFD_ERR == -1 && CONFD_EOF == -2 && CONFD_VALIDATION_WARN == -3, "return codes");
static_assert(CONFD_ERR_NOEXISTS == 1, "the bridge-MTU rule tells a missing element by this number");
static_assert(CONFD_ERR_BADTYPE == 5 && CONFD_ERR_BADPATH == 8, "error numbers");
static_assert(CONFD_ERR_NOSESSION == 22 && CONFD_ERR_OS == 24, "error numbers");

static_assert(C_NOEXISTS == 1 && C_XMLTAG == 2 && C_STR == 4 && C_BUF == 5, "value types");
static_assert(C_INT8 == 6 && C_INT16 == 7 && C_INT32 == 8 && C_INT64 == 9, "value types");
static_assert(C_UINT8 == 10 && C_UINT16 == 11 && C_UINT32 == 12 && C_UINT64 == 13, "value types");
static_assert(C_DOUBLE == 14 && C_IPV4 == 15 && C_IPV6 == 16 && C_BOOL == 17, "value types");
static_assert(C_ENUM_VALUE == 28 && C_LIST == 31 && C_DEFAULT == 42 && C_EMPTY == 53, "value types");

static_assert(ITER_STOP == 1 && ITER_RECURSE == 2 && ITER_CONTINUE == 3 && ITER_SUSPEND == 4 && ITER_UP == 5,
              "iterator answers");
static_assert(MOP_CREATED == 1 && MOP_DELETED == 2 && MOP_MODIFIED == 3 && MOP_VALUE_SET == 4, "change operations");
static_assert(MOP_MOVED_AFTER == 5 && MOP_ATTR_SET == 6, "change operations");
static_assert(CONFD_FIND_NEXT == 0 && CONFD_FIND_SAME_OR_NEXT == 1, "find modes");
static_assert(CDB_RUNNING == 1 && CDB_STARTUP == 2 && CDB_OPERATIONAL == 3 && CDB_PRE_COMMIT_RUNNING == 4,
              "datastores");

static_assert(sizeof(in_addr) == sizeof(uint32_t), "an IPv4 value is one 32-bit word in network byte order");
static_assert(std::is_same_v<decltype(confd_buf_t::size), unsigned int>, "buffer size");
static_assert(std::is_same_v<decltype(confd_buf_t::ptr), unsigned char *>, "buffer pointer");

#if defined(__LP64__)
static_assert(offsetof(confd_buf_t, size) == 0 && offsetof(confd_buf_t, ptr) == 8 && sizeof(confd_buf_t) == 16);
static_assert(offsetof(confd_value_t, type) == 0 && offsetof(confd_value_t, val) == 8 && sizeof(confd_value_t) == 24);
static_assert(offsetof(confd_hkeypath_t, len) == 0 && offsetof(confd_hkeypath_t, v) == 8);
static_assert(sizeof(confd_hkeypath_t) == 8 + std::size_t{MAXDEPTH} * MAXKEYLEN * sizeof(confd_value_t));
static_assert(offsetof(maapi_cursor, n) == 0 && offsetof(maapi_cursor, keys) == 8);
// An SDK is free to lay out its own context: the plug-in uses its fields by name. With the project's own headers the
// layout is the one that the virtual element's host was built with.
#if defined(PLATFORM_CHECK_OWN_CONTEXT)
static_assert(offsetof(confd_trans_ctx, v_opaque) == 40);
static_assert(offsetof(confd_trans_ctx, error) == 48);
static_assert(offsetof(confd_trans_ctx, thandle) == 72);
static_assert(offsetof(confd_trans_ctx, vcb_opaque) == 88);
static_assert(offsetof(confd_trans_ctx, callpoint_opaque) == 104);
static_assert(offsetof(confd_trans_ctx, validate_opaque) == 112);
#endif
#endif

static_assert(std::is_same_v<decltype(qnconfd_maapi_socket_get), int32_t(void *)>);
static_assert(std::is_same_v<decltype(qnconfd_instance_get), QnConfdInterface *(void *)>);
static_assert(std::is_constructible_v<QnConfdCdbSessionBase, QnConfdInterface *, cdb_db_type, bool>);
static_assert(std::has_virtual_destructor_v<QnConfdCdbSessionBase>, "the plug-in derives its session from it");
static_assert(std::is_same_v<decltype(limid_from_intfname), int(const char *, limid_t *)>);
static_assert(std::is_same_v<limid_t, uint32_t>);
static_assert(std::is_same_v<decltype(valid_intfname), bool(const char *)>);
static_assert(std::is_same_v<decltype(fm_scalar_card_vpn_mgr_access_ports), int(const fm_slot_t *, uint32_t *)>);
// The type is what matters, whether or not the declaration lets the compiler check formats.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wignored-attributes"
static_assert(std::is_same_v<decltype(zlog), void(zlog_category_t *, const char *, size_t, const char *, size_t, long,
                                                  int, const char *, ...)>);
#pragma GCC diagnostic pop
