#ifndef MAINTENANCE_HOOKS_HOOKING_H
#define MAINTENANCE_HOOKS_HOOKING_H

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "maintenance/recording/function.h"

namespace hooks {

/// An address for each function; null where there is none.
using Addresses = std::array<void *, recording::function_count>;

/// The function that is called by this symbol; none where it is none whose calls are recorded.
std::optional<recording::Function> function_of(std::string_view symbol);

struct Hooked {
  Addresses originals{};        ///< what the library called before
  int *error_number = nullptr;  ///< the platform's confd_errno; null where the library does not use it
  std::string problem;          ///< why nothing was changed; empty where the library is hooked
};

/// Has the loaded library, and no other, call `replacements` in place of the platform's functions and of the system's
/// clock, by writing to the slots that its calls go through. Nothing is changed where one of them cannot be written to,
/// or where the library calls a function that has no replacement: half a recording would be worth nothing.
Hooked hook(void *library, const Addresses &replacements);

}  // namespace hooks

#endif
