#ifndef CONFIG_VALIDATE_COMN_GUARDS_H
#define CONFIG_VALIDATE_COMN_GUARDS_H

#include <array>
#include <cstddef>

#include "confd_lib.h"
#include "confd_maapi.h"

/// A cursor that is destroyed when it leaves scope. It stands on no entry until it is moved:
///
///   scoped_cursor mc;
///   maapi_init_cursor(sock, tctx->thandle, &mc, "/internal/int-vpws-group");
///   for (maapi_get_next(&mc); mc.n != 0; maapi_get_next(&mc)) use(GET_BUF(&mc.keys[0]));
struct scoped_cursor : maapi_cursor {
  scoped_cursor() : maapi_cursor{} {}
  ~scoped_cursor() { maapi_destroy_cursor(this); }
  scoped_cursor(const scoped_cursor &) = delete;
  scoped_cursor &operator=(const scoped_cursor &) = delete;
};

/// A value that a read fills and that is freed when it leaves scope.
struct scoped_value : confd_value_t {
  scoped_value() : confd_value_t{} { type = C_NOEXISTS; }
  ~scoped_value() { confd_free_value(this); }
  scoped_value(const scoped_value &) = delete;
  scoped_value &operator=(const scoped_value &) = delete;
};

/// The values that one object read fills, freed when they leave scope. What a failed read leaves is of no type.
template <std::size_t kValues>
struct scoped_object : std::array<confd_value_t, kValues> {
  scoped_object() : std::array<confd_value_t, kValues>{} {
    for (confd_value_t &value : *this) value.type = C_NOEXISTS;
  }
  ~scoped_object() {
    for (confd_value_t &value : *this) confd_free_value(&value);
  }
  scoped_object(const scoped_object &) = delete;
  scoped_object &operator=(const scoped_object &) = delete;
};

/// Objects are read from lists in batches of this many entries.
constexpr int kBatchEntries = 64;

#endif
