#ifndef MAINTENANCE_RECORDER_RECORDED_CALL_H
#define MAINTENANCE_RECORDER_RECORDED_CALL_H

#include <chrono>
#include <cstdint>

#include "confd_lib.h"
#include "maintenance/hooks/hooking.h"
#include "maintenance/hooks/question.h"
#include "maintenance/recorder/tape.h"

namespace recorder {

/// What the recorded library called before its calls came here.
extern hooks::Hooked hooked;

/// The platform's function, of the type that its header declares.
template <typename Type>
Type *original(recording::Function function) {
  return reinterpret_cast<Type *>(hooked.originals[static_cast<std::size_t>(function)]);
}

/// One call of the platform on the tape, while a recording is made; nothing otherwise. An exception that leaves the
/// call ends the recording, for it has no answer then.
class RecordedCall {
 public:
  template <typename... Arguments>
  explicit RecordedCall(recording::Function function, const Arguments &...arguments)
      : is_recording_(tape().is_running()) {
    if (!is_recording_) return;
    tape().writer().start_call(function);
    (put(arguments), ...);
    tape().writer().end_items();
    began_ = std::chrono::steady_clock::now();
  }
  ~RecordedCall() {
    if (is_recording_ && !is_answered_) tape().give_up("an exception left a call of the platform");
  }
  RecordedCall(const RecordedCall &) = delete;
  RecordedCall &operator=(const RecordedCall &) = delete;

  /// The platform has answered: takes the time. Outputs follow, and done().
  void answered() { finish(nullptr, nullptr); }
  void answered(std::int64_t result) { finish(&result, nullptr); }
  /// The same of a function of the agent, which sets confd_errno where it fails.
  void answered_by_agent(std::int64_t result);

  template <typename... Outputs>
  void outputs(const Outputs &...outputs) {
    if (is_recording_) (put(outputs), ...);
  }

  void done() {
    if (!is_recording_) return;
    tape().writer().end_items();
    tape().writer().duration(duration_);
    is_answered_ = true;
  }

  bool is_recording() const { return is_recording_; }

 private:
  void finish(const std::int64_t *result, const std::int64_t *error);

  template <typename Argument>
  static void put(const Argument &argument) {
    if (!hooks::write(tape().writer(), argument)) tape().give_up("it holds a value or a conversion that is not known");
  }

  bool is_recording_;
  bool is_answered_ = false;
  std::uint64_t duration_ = 0;
  std::chrono::steady_clock::time_point began_;
};

}  // namespace recorder

#endif
