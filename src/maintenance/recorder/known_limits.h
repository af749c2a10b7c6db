#ifndef MAINTENANCE_RECORDER_KNOWN_LIMITS_H
#define MAINTENANCE_RECORDER_KNOWN_LIMITS_H

#include <array>
#include <cstdint>
#include <optional>

#include "fm.h"
#include "maintenance/recording/function.h"
#include "maintenance/recording/writer.h"

namespace recorder {

/// The last answer of each function of the feature model, kept for the headers of later recordings: the library asks
/// for some limits once in a process.
class KnownLimits {
 public:
  /// A call without arguments. `slot`: what it wrote, null where it failed.
  void note(recording::Function function, std::int64_t result, const fm_slot_t *slot);
  /// A read of one limit. `value`: null where it failed.
  void note(recording::Function function, const fm_slot_t &asked, std::int64_t result, const std::uint32_t *value);

  /// As calls.
  void write(recording::Writer &writer) const;

 private:
  struct Answer {
    bool is_known = false;
    std::int64_t result = 0;
    std::optional<fm_slot_t> asked;
    std::optional<fm_slot_t> slot;
    std::optional<std::uint32_t> value;
  };

  std::array<Answer, recording::function_count> answers_;
};

}  // namespace recorder

#endif
