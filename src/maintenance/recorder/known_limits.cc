#include "maintenance/recorder/known_limits.h"

namespace recorder {

namespace {

void write_slot(recording::Writer &writer, const std::optional<fm_slot_t> &slot) {
  if (!slot) return;
  writer.unsigned_item(slot->shelf);
  writer.unsigned_item(slot->slot);
}

}  // namespace

void KnownLimits::note(recording::Function function, std::int64_t result, const fm_slot_t *slot) {
  Answer &answer = answers_[static_cast<std::size_t>(function)];
  answer = {};
  answer.is_known = true;
  answer.result = result;
  if (slot != nullptr) answer.slot = *slot;
}

void KnownLimits::note(recording::Function function, const fm_slot_t &asked, std::int64_t result,
                       const std::uint32_t *value) {
  note(function, result, nullptr);
  Answer &answer = answers_[static_cast<std::size_t>(function)];
  answer.asked = asked;
  if (value != nullptr) answer.value = *value;
}

void KnownLimits::write(recording::Writer &writer) const {
  for (std::size_t i = 0; i < answers_.size(); ++i) {
    const Answer &answer = answers_[i];
    if (!answer.is_known) continue;
    writer.start_call(static_cast<recording::Function>(i));
    write_slot(writer, answer.asked);
    writer.end_items();
    writer.answer(&answer.result, nullptr);
    write_slot(writer, answer.slot);
    if (answer.value) writer.unsigned_item(*answer.value);
    writer.end_items();
    writer.duration(0);
  }
}

}  // namespace recorder
