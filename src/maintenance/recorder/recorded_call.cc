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

void RecordedCall::put(const char *text) {
  if (text == nullptr) return tape().writer().null_item();
  tape().writer().text_item(text);
}

void RecordedCall::put(const hooks::FormatArguments &arguments) {
  arguments.write(tape().writer());
  if (!arguments.is_known()) tape().give_up("a format holds a conversion that is not known");
}

void RecordedCall::put(const confd_value_t &value) {
  if (!hooks::write(tape().writer(), value)) tape().give_up("a value is of a type whose content is not known");
}

void RecordedCall::put(const Values &values) {
  for (int i = 0; i < values.count; ++i) put(values.first[i]);
}

}  // namespace recorder
