#ifndef CONFIG_VALIDATE_COMN_DAEMON_GUARDS_H
#define CONFIG_VALIDATE_COMN_DAEMON_GUARDS_H

#include <array>
#include <cstddef>

#include "confd_cdb.h"
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

/// The values that one object read fills. What a failed read leaves is of no type. What owns memory is freed when the
/// values leave scope; a fixed-size value owns none and costs no call.
template <std::size_t kValues>
struct scoped_object : std::array<confd_value_t, kValues> {
  scoped_object() : std::array<confd_value_t, kValues>{} {
    for (confd_value_t &value : *this) value.type = C_NOEXISTS;
  }
  ~scoped_object() {
    for (confd_value_t &value : *this) {
      if (value.type == C_BUF || value.type == C_LIST) confd_free_value(&value);
    }
  }
  scoped_object(const scoped_object &) = delete;
  scoped_object &operator=(const scoped_object &) = delete;
};

/// Objects are read from lists in batches of this many entries.
constexpr int kBatchEntries = 64;

/// One batch of list entries, `kValues` values each. The values start out as values of no type, so that what a failed
/// read left unfilled ends on its type assertion and never on stale memory. `owned` tells which values of an entry own
/// memory: these are freed, entry by entry, for every entry that was read, at the latest when the batch leaves scope.
///
///   do {
///     scoped_batch<2, 1> batch({0});
///     if (!batch.fetch(mc)) break;
///     for (int i = 0; i < batch.count(); ++i) use(GET_BUF(&batch.entry(i)[0]));
///   } while (mc.n != 0);
template <std::size_t kValues, std::size_t kOwned>
class scoped_batch {
 public:
  explicit scoped_batch(const std::array<std::size_t, kOwned> &owned) : owned_(owned) {
    // A batch may be made for every access interface, and most of it stays empty: the loop is what such a batch costs.
#pragma GCC unroll 16
    for (confd_value_t &value : values_) value.type = C_NOEXISTS;
  }
  ~scoped_batch() {
    while (freed_ < count_) free_next();
  }
  scoped_batch(const scoped_batch &) = delete;
  scoped_batch &operator=(const scoped_batch &) = delete;

  /// Reads up to kBatchEntries entries after the cursor. False when the read failed: there is then no entry.
  bool fetch(maapi_cursor &mc) {
    int count = kBatchEntries;
    if (maapi_get_objects(&mc, values_.data(), static_cast<int>(kValues), &count) < 0) return false;
    count_ = count;
    return true;
  }

  /// Reads `count` entries of a list from `index` on through a CDB session. A failed read shows only in the values.
  void fetch(int cdb_socket, int index, int count, const char *list) {
    count_ = count;
    cdb_get_objects(cdb_socket, values_.data(), static_cast<int>(kValues), index, count, "%s", list);
  }

  int count() const { return count_; }
  const confd_value_t *entry(int i) const { return &values_[static_cast<std::size_t>(i) * kValues]; }

  /// Frees what the first entry that has not been freed yet owns.
  void free_next() {
    confd_value_t *values = &values_[static_cast<std::size_t>(freed_) * kValues];
    for (const std::size_t value : owned_) confd_free_value(&values[value]);
    ++freed_;
  }

 private:
  std::array<confd_value_t, kBatchEntries * kValues> values_;
  std::array<std::size_t, kOwned> owned_;
  int count_ = 0;
  int freed_ = 0;
};

#endif
