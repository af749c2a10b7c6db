#include "bench/peak_memory.h"

#include <malloc.h>

#include <fstream>
#include <string>

namespace bench {
namespace {

std::size_t status_bytes(const std::string &field) {
  std::ifstream status("/proc/self/status");
  for (std::string name; status >> name;) {
    std::size_t kilobytes = 0;
    if (name == field && status >> kilobytes) return kilobytes * 1024;
  }
  return 0;
}

}  // namespace

PeakMemory::PeakMemory() {
  malloc_trim(0);
  std::ofstream("/proc/self/clear_refs") << "5";
  start_ = status_bytes("VmRSS:");
}

std::size_t PeakMemory::bytes() const {
  const std::size_t peak = status_bytes("VmHWM:");
  return peak > start_ ? peak - start_ : 0;
}

}  // namespace bench
