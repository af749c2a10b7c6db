#ifndef HOST_SEAM_LOOKUP_HINTS_H
#define HOST_SEAM_LOOKUP_HINTS_H

#include <array>
#include <cstddef>
#include <cstdint>

namespace host {

/// Where look-ups by key last came out, list by list. A caller that walks a list asks for its entries in their order,
/// so that the next look-up most often comes out there again or one entry further. Lists share the slots: a list that
/// was pushed out begins anew.
class LookupHints {
 public:
  /// The index of the entry of a list that was found last, to be read and written; 0 in a new list. The reference is
  /// valid until the next call. Precondition: the list at this address is the same since the last clear().
  std::size_t &of(const void *list) {
    Slot &slot = slots_[reinterpret_cast<std::uintptr_t>(list) / 16 % slots_.size()];
    if (slot.list != list) slot = {list, 0};
    return slot.index;
  }

  void clear() { slots_.fill({}); }

 private:
  struct Slot {
    const void *list = nullptr;
    std::size_t index = 0;
  };

  std::array<Slot, 64> slots_{};
};

}  // namespace host

#endif
