#include "maintenance/recorder/output_values.h"

#include <cstdlib>
#include <cstring>

#include "maintenance/hooks/agent_values.h"
#include "maintenance/recorder/tape.h"

namespace recorder {

namespace {

// In the place of a type; it is the number of none.
constexpr std::uint32_t kMark = 0x6b72616d;
static_assert(sizeof(confd_vtype) == sizeof kMark);

/// Room for what the caller had, kept for the next call. Null where memory is short.
confd_value_t *room_for(std::size_t count) {
  static confd_value_t *room = nullptr;
  static std::size_t size = 0;
  if (count <= size) return room;
  void *larger = std::realloc(room, count * sizeof(confd_value_t));
  if (larger == nullptr) return nullptr;
  room = static_cast<confd_value_t *>(larger);
  size = count;
  return room;
}

void mark(confd_value_t &value) { std::memcpy(&value.type, &kMark, sizeof kMark); }

bool is_marked(const confd_value_t &value) { return std::memcmp(&value.type, &kMark, sizeof kMark) == 0; }

}  // namespace

OutputValues::OutputValues(bool is_recording, confd_value_t *values, long count)
    : values_(values), count_(count < 0 ? 0 : static_cast<std::size_t>(count)) {
  if (!is_recording || count_ == 0) return;
  confd_value_t *kept = room_for(count_);
  if (kept == nullptr) {
    tape().give_up("memory is short");
    return;
  }
  std::memcpy(static_cast<void *>(kept), values, count_ * sizeof *values);
  for (std::size_t i = 0; i < count_; ++i) mark(values[i]);
  is_marked_ = true;
}

OutputValues::~OutputValues() {
  if (is_marked_) restore();
}

void OutputValues::record() {
  if (!is_marked_) return;
  recording::Writer &writer = tape().writer();
  std::size_t last = count_;
  while (last > 0 && is_marked(values_[last - 1])) --last;
  bool is_known = true;
  for (std::size_t i = 0; i < last; ++i) {
    if (is_marked(values_[i])) {
      writer.null_item();
    } else {
      is_known = hooks::write(writer, values_[i]) && is_known;
    }
  }
  if (!is_known) tape().give_up("a value is of a type whose content is not known");
  restore();
}

// A value is its type first; what the platform did not write is as it was.
void OutputValues::restore() {
  const confd_value_t *kept = room_for(count_);
  for (std::size_t i = 0; i < count_; ++i) {
    if (is_marked(values_[i])) std::memcpy(static_cast<void *>(&values_[i]), &kept[i], sizeof kept[i]);
  }
  is_marked_ = false;
}

}  // namespace recorder
