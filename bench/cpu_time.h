#ifndef BENCH_CPU_TIME_H
#define BENCH_CPU_TIME_H

namespace bench {

/// CPU seconds that this process has used: unlike the time of day it does not run while other processes do.
double cpu_seconds();

/// CPU seconds that a step takes.
template <typename Step>
double cpu_seconds_of(Step step) {
  const double start = cpu_seconds();
  step();
  return cpu_seconds() - start;
}

}  // namespace bench

#endif
