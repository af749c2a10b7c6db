#ifndef BENCH_PEAK_MEMORY_H
#define BENCH_PEAK_MEMORY_H

#include <cstddef>

namespace bench {

/// Measures by how much the process's resident memory rose at most since this was made. Linux only: it resets and reads
/// the kernel's high-water mark.
class PeakMemory {
 public:
  PeakMemory();
  std::size_t bytes() const;

 private:
  std::size_t start_ = 0;
};

}  // namespace bench

#endif
