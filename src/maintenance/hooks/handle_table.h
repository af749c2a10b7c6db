#ifndef MAINTENANCE_HOOKS_HANDLE_TABLE_H
#define MAINTENANCE_HOOKS_HANDLE_TABLE_H

#include <array>
#include <cstddef>
#include <cstdint>

#include "maintenance/recording/recording.h"

namespace hooks {

/// Numbers for addresses: what a pointer stands for is the n-th of its kind in a recording. It keeps the last addresses
/// of each kind; a cursor that was left open a long time ago is forgotten.
class HandleTable {
 public:
  void clear() { kinds_ = {}; }

  /// The address stands for a new thing from now on.
  recording::Handle open(recording::HandleKind kind, const void *address) {
    Kind &known = kinds_[static_cast<std::size_t>(kind)];
    std::size_t place = find(known, address);
    if (place == kKept) place = known.opened % kKept;
    known.entries[place] = {address, ++known.opened};
    return {kind, known.opened};
  }

  /// What the address stands for, as it was opened. Null is no handle at all.
  recording::Handle known(recording::HandleKind kind, const void *address) const {
    if (address == nullptr) return {};
    const Kind &known = kinds_[static_cast<std::size_t>(kind)];
    const std::size_t place = find(known, address);
    return place == kKept ? recording::Handle{recording::HandleKind::other, 0}
                          : recording::Handle{kind, known.entries[place].number};
  }

  recording::Handle known_or_open(recording::HandleKind kind, const void *address) {
    const recording::Handle handle = known(kind, address);
    return handle.kind == recording::HandleKind::other ? open(kind, address) : handle;
  }

 private:
  static constexpr std::size_t kKept = 16;

  struct Entry {
    const void *address = nullptr;
    std::uint64_t number = 0;
  };
  struct Kind {
    std::array<Entry, kKept> entries{};
    std::uint64_t opened = 0;
  };

  static std::size_t find(const Kind &kind, const void *address) {
    for (std::size_t i = 0; i < kKept; ++i) {
      if (kind.entries[i].address == address) return i;
    }
    return kKept;
  }

  std::array<Kind, static_cast<std::size_t>(recording::HandleKind::other) + 1> kinds_{};
};

}  // namespace hooks

#endif
