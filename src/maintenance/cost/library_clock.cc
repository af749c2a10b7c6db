#include "maintenance/cost/library_clock.h"

#include <dlfcn.h>

#include <algorithm>
#include <stdexcept>
#include <string_view>

#include "maintenance/hooks/library_slots.h"

namespace cost {
namespace {

constexpr std::string_view kNow = "_ZNSt6chrono3_V212system_clock3nowEv";

std::chrono::system_clock::time_point library_time;

std::chrono::system_clock::time_point now_of_library() { return library_time; }

}  // namespace

LibraryClock::LibraryClock(const std::filesystem::path &library) {
  void *loaded = dlopen(library.c_str(), RTLD_NOLOAD | RTLD_LAZY);
  if (loaded == nullptr) throw std::runtime_error(library.string() + ": is not loaded");
  const hooks::LibrarySlots found = hooks::read_slots(loaded);
  dlclose(loaded);
  const auto slot = std::find_if(found.slots.begin(), found.slots.end(), [](const hooks::Slot &candidate) {
    return candidate.symbol == kNow && candidate.is_call && candidate.is_writable;
  });
  if (slot == found.slots.end()) {
    throw std::runtime_error(library.string() + ": does not ask for the time by a jump slot that can be set anew");
  }
  slot_ = slot->address;
  before_ = *slot_;
  library_time = std::chrono::system_clock::now();
  *slot_ = reinterpret_cast<void *>(&now_of_library);
}

LibraryClock::~LibraryClock() { *slot_ = before_; }

void LibraryClock::move(std::chrono::nanoseconds time) {
  library_time += std::chrono::duration_cast<std::chrono::system_clock::duration>(time);
}

}  // namespace cost
