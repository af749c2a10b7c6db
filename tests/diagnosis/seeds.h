#ifndef TESTS_DIAGNOSIS_SEEDS_H
#define TESTS_DIAGNOSIS_SEEDS_H

#include <cstdint>
#include <cstdlib>

#include "tests/support/build_under_test.h"

/// DIAGNOSIS_SEED=N in the environment begins with that seed, DIAGNOSIS_COMMITS=N draws so many commits a test. Without
/// it every run draws the same commits, so that it judges the change and not the draw.
inline std::uint32_t number_from_environment(const char *name, std::uint32_t otherwise) {
  const char *text = std::getenv(name);
  return text == nullptr ? otherwise : static_cast<std::uint32_t>(std::strtoul(text, nullptr, 10));
}

inline std::uint32_t first_seed() {
  static const std::uint32_t seed = number_from_environment("DIAGNOSIS_SEED", 1);
  return seed;
}

/// Fewer where a sanitizer makes each question slow.
inline std::uint32_t commits_to_draw(std::uint32_t otherwise) {
  if (is_sanitized()) otherwise = (otherwise + 7) / 8;
  return number_from_environment("DIAGNOSIS_COMMITS", otherwise);
}

#endif
