#ifndef CONFIG_VALIDATE_COMN_DAEMON_VALUE_ASSERT_H
#define CONFIG_VALIDATE_COMN_DAEMON_VALUE_ASSERT_H

#include <cstdint>
#include <string>
#include <string_view>

#include "confd_lib.h"

/// Stops the process in every build type: prints file, line, function and `text` as assert() does, then aborts.
[[noreturn]] void value_assert_fail(const char *text, const char *file, unsigned line, const char *function);

/// Stops the process unless the value has the type. A value of another type is a broken data model, on which no verdict
/// may be built. The text keeps the argument's spelling: ASSERT_TYPE(&mc.keys[1], C_INT32) says
/// "(&mc.keys[1])->type == C_INT32", which is what operators search for.
#define ASSERT_TYPE(value, expected)                                                                       \
  ((value)->type == (expected) ? static_cast<void>(0)                                                      \
                               : value_assert_fail("(" #value ")->type == " #expected, __FILE__, __LINE__, \
                                                   static_cast<const char *>(__func__)))

/// The asserted value's content; use as GET_UINT32(&mc.keys[2]).
#define GET_BUF(value) (ASSERT_TYPE(value, C_BUF), buf_text(value))
#define GET_BUF_VIEW(value) (ASSERT_TYPE(value, C_BUF), buf_view(value))
#define GET_UINT32(value) (ASSERT_TYPE(value, C_UINT32), (value)->val.u32)
#define GET_INT32(value) (ASSERT_TYPE(value, C_INT32), (value)->val.i32)
#define GET_IPV4(value) (ASSERT_TYPE(value, C_IPV4), static_cast<std::uint32_t>((value)->val.ip.s_addr))

/// The text of a C_BUF, where it stands.
inline std::string_view buf_view(const confd_value_t *value) {
  return {reinterpret_cast<const char *>(value->val.buf.ptr), value->val.buf.size};
}

/// The text of a C_BUF.
inline std::string buf_text(const confd_value_t *value) { return std::string(buf_view(value)); }

#endif
