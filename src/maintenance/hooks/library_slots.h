#ifndef MAINTENANCE_HOOKS_LIBRARY_SLOTS_H
#define MAINTENANCE_HOOKS_LIBRARY_SLOTS_H

#include <string>
#include <string_view>
#include <vector>

namespace hooks {

/// A word of a loaded library that the loader fills with the address of a symbol of another library.
struct Slot {
  std::string_view symbol;  ///< stands in the library
  void **address = nullptr;
  bool is_writable = false;
  bool is_call = false;       ///< a jump slot: calls of the function go through it
  bool is_versioned = false;  ///< the symbol is asked of a library that is named with a version, as the C library is
};

struct LibrarySlots {
  std::vector<Slot> slots;
  std::string problem;  ///< why they could not be read; empty where they could
};

/// The slots of the library that dlopen() gave this handle for. Weak symbols are left out.
LibrarySlots read_slots(void *library);

/// The GNU build id of a loaded library in hexadecimal, "none" where it carries none.
std::string build_id(void *library);

}  // namespace hooks

#endif
