#ifndef MAINTENANCE_GENERATOR_RANDOM_H
#define MAINTENANCE_GENERATOR_RANDOM_H

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <iterator>
#include <random>
#include <string>

namespace maintenance {

/// Numbers from a seed, the same with every compiler and library: the engine is laid down by the language, and the
/// library's distributions, which are not, are left alone. For the same reason no two draws may be arguments of one
/// call: their order is the compiler's.
class Random {
 public:
  explicit Random(std::uint64_t seed) : engine_(seed) {}

  /// 0 to end - 1; `end` is at least 1 and small against 2^64, so that the bias of the remainder does not matter.
  std::size_t number(std::size_t end) { return engine_() % end; }
  bool one_in(std::size_t n) { return number(n) == 0; }

  template <typename T>
  T one_of(std::initializer_list<T> choices) {
    return *std::next(choices.begin(), static_cast<std::ptrdiff_t>(number(choices.size())));
  }
  std::string text_of(std::initializer_list<const char *> choices) { return one_of(choices); }

 private:
  std::mt19937_64 engine_;
};

}  // namespace maintenance

#endif
