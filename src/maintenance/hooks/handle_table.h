#ifndef MAINTENANCE_HOOKS_HANDLE_TABLE_H
#define MAINTENANCE_HOOKS_HANDLE_TABLE_H

#include <array>
#include <cstddef>
#include <cstdint>

#include "maintenance/recording/recording.h"

namespace hooks {

/// Gives the platform's objects numbers, because a recording holds no addresses: an object is the n-th of its kind that
/// was opened. The last 16 of each kind are known by their addresses; an older one that is still open is forgotten.
class HandleTable {
 public:
  void clear() { kinds_ = {}; }

  /// A new object has this address from now on.
  recording::Handle open(recording::HandleKind kind, const void *address) {
    Kind &known = kinds_[static_cast<std::size_t>(kind)];
    std::size_t place = find(known, address);
    if (place == kKept) place = known.opened % kKept;
    known.entries[place] = {address, ++known.opened};
    return {kind, known.opened};
  }

  /// The object that was opened last at this address; kind `other`, number 0, where none was. Null has kind `none`.
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
