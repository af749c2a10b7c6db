#ifndef TESTS_FUZZ_FUZZ_TARGET_H
#define TESTS_FUZZ_FUZZ_TARGET_H

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

/// Runs the code under test on one input; what must not happen ends the process. Called many times in one process.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size);

/// Ends the process where a fuzz target's condition does not hold; the fuzzer then keeps the input.
inline void require(bool condition, const char *what) {
  if (condition) return;
  std::fprintf(stderr, "fuzz target: %s\n", what);
  std::abort();
}

#endif
