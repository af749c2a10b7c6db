#include "maintenance/hooks/hooking.h"

#include <dlfcn.h>

#include <algorithm>
#include <iterator>
#include <vector>

#include "maintenance/hooks/library_slots.h"

namespace hooks {

namespace {

using recording::Function;

struct NamedSymbol {
  std::string_view symbol;
  Function function;
};

// Mangled C++ symbols, with the names that recordings have for them: the clock, and the session class, whose
// constructors and destructors have a symbol for whole objects and one for bases.
constexpr NamedSymbol kNamedSymbols[] = {
    {"_ZN21QnConfdCdbSessionBaseC1EP16QnConfdInterface11cdb_db_typeb", Function::cdb_session_start},
    {"_ZN21QnConfdCdbSessionBaseC2EP16QnConfdInterface11cdb_db_typeb", Function::cdb_session_start},
    {"_ZN21QnConfdCdbSessionBaseD1Ev", Function::cdb_session_end},
    {"_ZN21QnConfdCdbSessionBaseD2Ev", Function::cdb_session_end},
    {"_ZNK21QnConfdCdbSessionBase6SocketEv", Function::cdb_session_socket},
    {"_ZNSt6chrono3_V212system_clock3nowEv", Function::system_clock_now},
};

/// Whether the address lies in a library of the compiler or of the C library, which a sanitizer's may stand before.
bool is_of_runtime(const void *address) {
  Dl_info info{};
  if (::dladdr(address, &info) == 0 || info.dli_fname == nullptr) return false;
  std::string_view file = info.dli_fname;
  file.remove_prefix(file.rfind('/') + 1);
  constexpr std::string_view kRuntimes[] = {"libc.",    "libm.",     "libstdc++.", "libgcc_s.",
                                            "libasan.", "libubsan.", "libtsan."};
  return std::any_of(std::begin(kRuntimes), std::end(kRuntimes),
                     [file](std::string_view runtime) { return file.substr(0, runtime.size()) == runtime; });
}

// Names that begin with two underscores belong to the compiler and its run-time libraries.
bool is_unknown_platform_function(const Slot &slot) {
  if (!slot.is_call || slot.is_versioned || slot.symbol.substr(0, 2) == "__") return false;
  return !is_of_runtime(*slot.address);
}

/// A slot to be written to.
struct Target {
  Function function;
  void **address;
};

/// Collects the slots of functions that have a replacement. Returns why the library cannot be hooked, or nothing.
std::string find_targets(const std::vector<Slot> &slots, const Addresses &replacements, std::vector<Target> &targets) {
  bool calls_platform = false;
  for (const Slot &slot : slots) {
    const std::optional<Function> function = function_of(slot.symbol);
    const bool is_hooked = function && replacements[static_cast<std::size_t>(*function)] != nullptr;
    if (!is_hooked) {
      if (is_unknown_platform_function(slot)) return "it calls " + std::string(slot.symbol) + ", which is not known";
      continue;
    }
    if (!slot.is_writable) {
      return "the slot of " + std::string(slot.symbol) + " is read-only once the library is loaded";
    }
    calls_platform = calls_platform || *function != Function::system_clock_now;
    targets.push_back({*function, slot.address});
  }
  return calls_platform ? "" : "it calls no function of the platform through a slot";
}

int *error_number_of(const std::vector<Slot> &slots) {
  for (const Slot &slot : slots) {
    if (slot.symbol == "confd_errno") return static_cast<int *>(*slot.address);
  }
  return nullptr;
}

}  // namespace

std::optional<Function> function_of(std::string_view symbol) {
  for (const NamedSymbol &named : kNamedSymbols) {
    if (named.symbol == symbol) return named.function;
  }
  return recording::function_named(symbol);
}

Hooked hook(void *library, const Addresses &replacements) {
  Hooked hooked;
  const LibrarySlots read = read_slots(library);
  hooked.problem = read.problem;
  std::vector<Target> targets;
  if (hooked.problem.empty()) hooked.problem = find_targets(read.slots, replacements, targets);
  if (!hooked.problem.empty()) return hooked;

  hooked.error_number = error_number_of(read.slots);
  for (const Target &target : targets) hooked.originals[static_cast<std::size_t>(target.function)] = *target.address;
  for (const Target &target : targets) {
    *target.address = replacements[static_cast<std::size_t>(target.function)];
  }
  return hooked;
}

}  // namespace hooks
