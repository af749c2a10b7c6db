#ifndef CONFIG_VALIDATE_COMN_DAEMON_INTERFACE_ENCAPSULATION_H
#define CONFIG_VALIDATE_COMN_DAEMON_INTERFACE_ENCAPSULATION_H

#include <cstdint>
#include <memory>
#include <string>

#include "confd_dp.h"
#include "config_validate_comn/daemon/guards.h"

/// Whether the untagged leaf at the path says that the access interface is untagged. A failed read says no.
bool is_configured_untagged(std::int32_t sock, confd_trans_ctx *tctx, const std::string &path);

/// The dot1q-ranges of one access interface, read at once by the constructor. The cursor that read them stays open
/// while the object lives.
///
/// A failed count of -1 throws std::bad_array_new_length from the allocation, before the cursor is opened: nothing can
/// be said about an encapsulation that was there a moment ago and cannot be counted now.
class encap_ranges_t {
 public:
  encap_ranges_t(std::int32_t sock, confd_trans_ctx *tctx, const std::string &path);

  /// Whether the ranges could be fetched. When not, there is no entry to look at.
  bool is_read() const { return is_read_; }

  int size() const { return count_; }

  /// The two values of an entry, minimum and maximum. Their types are the caller's to assert. Nothing to free.
  const confd_value_t *entry(int index) const { return &values_[2 * static_cast<std::size_t>(index)]; }

 private:
  int count_;
  std::unique_ptr<confd_value_t[]> values_;
  scoped_cursor mc_;
  bool is_read_;
};

#endif
