#include "host/seam/cursor_pool.h"

namespace host {

namespace {

// The low half is the slot's number, the high half how often the slot has been used, from 1: no handle is null.
// It stands in a field that is a pointer and never points anywhere.
void *make_handle(std::uint32_t slot, std::uint32_t uses) {
  // NOLINTNEXTLINE(performance-no-int-to-ptr)
  return reinterpret_cast<void *>((static_cast<std::uintptr_t>(uses) << 32U) | slot);
}

}  // namespace

void *CursorPool::open(const element::SchemaNode &list, const element::Node *entries) {
  if (free_.empty()) {
    free_.push_back(static_cast<std::uint32_t>(slots_.size()));
    slots_.emplace_back();
  }
  const std::uint32_t number = free_.back();
  free_.pop_back();

  Slot &slot = slots_[number];
  slot.open = true;
  ++slot.uses;
  slot.cursor.list = &list;
  slot.cursor.entries = entries;
  slot.cursor.next = 0;
  return make_handle(number, slot.uses);
}

CursorPool::Slot *CursorPool::slot(void *handle) {
  const auto bits = reinterpret_cast<std::uintptr_t>(handle);
  const auto number = static_cast<std::uint32_t>(bits);
  if (number >= slots_.size()) return nullptr;

  Slot &slot = slots_[number];
  const bool same_use = slot.uses == static_cast<std::uint32_t>(bits >> 32U);
  return slot.open && same_use ? &slot : nullptr;
}

OpenCursor *CursorPool::find(void *handle) {
  Slot *found = slot(handle);
  return found == nullptr ? nullptr : &found->cursor;
}

bool CursorPool::close(void *handle) {
  Slot *found = slot(handle);
  if (found == nullptr) return false;
  found->open = false;
  free_.push_back(static_cast<std::uint32_t>(reinterpret_cast<std::uintptr_t>(handle)));
  return true;
}

void CursorPool::close_all() {
  for (std::uint32_t number = 0; number < slots_.size(); ++number) {
    if (slots_[number].open) close(make_handle(number, slots_[number].uses));
  }
}

}  // namespace host
