#include "maintenance/recorder/recorded_call.h"

namespace recorder {

hooks::Hooked hooked;

void RecordedCall::finish(const std::int64_t *result, const std::int64_t *error) {
  if (!is_recording_) return;
  const auto passed = std::chrono::steady_clock::now() - began_;
  duration_ = static_cast<std::uint64_t>(std::chrono::duration_cast<std::chrono::nanoseconds>(passed).count());
  tape().writer().answer(result, error);
}

void RecordedCall::answered_by_agent(std::int64_t result) {
  const bool has_reason = result < 0 && hooked.error_number != nullptr;
  const std::int64_t reason = has_reason ? *hooked.error_number : 0;
  finish(&result, has_reason ? &reason : nullptr);
}

}  // namespace recorder
