#ifndef TESTS_DIAGNOSIS_SEEDED_FAULTS_NAME_POOL_H
#define TESTS_DIAGNOSIS_SEEDED_FAULTS_NAME_POOL_H

#include <cstddef>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include "element/profile/profile.h"

namespace seeded {

/// The card's limits. Small, so that commits that exceed them stay small; the most VPNs are the test program's own,
/// which defines them.
extern const std::uint32_t kVpnLimit;
inline constexpr std::uint32_t kAccessInterfaceLimit = 6;
inline constexpr std::uint32_t kEncapsulationVlanLimit = 140;
inline constexpr std::uint32_t kEncapsulationRangeLimit = 90;

/// The element that every seeded commit is checked against: a library may read its card's limits once in a process.
const element::Profile &profile();

inline constexpr std::uint16_t kVlansOfABlock = 10;

/// Hands out each port, name and number once, drawn from a seed, so that what is seeded with them meets nothing else
/// by accident and stands anywhere in the lists.
class NamePool {
 public:
  explicit NamePool(std::uint32_t seed);

  /// From 0, below `end`.
  std::size_t number(std::size_t end) { return random_() % end; }
  bool coin() { return number(2) == 0; }

  template <typename T>
  const T &one_of(const std::vector<T> &choices) {
    return choices[number(choices.size())];
  }

  std::string port() { return take(ports_); }
  std::string service_port() { return take(service_ports_); }

  /// Has service-port in its name and no number behind it.
  std::string unnumbered_service_port() { return take(unnumbered_service_ports_); }

  /// No name is the beginning of another.
  std::string vpn();

  /// Of a list under /config: an instance, an interface, a number.
  std::string name() { return std::to_string(take(numbers_)); }

  /// The first of a block of VLANs.
  std::uint16_t vlans() { return take(vlans_); }

  std::uint32_t pw_id() { return take(pw_ids_); }
  std::string neighbor();

 private:
  template <typename T>
  T take(std::vector<T> &unused) {
    T taken = unused.at(unused.size() - 1);
    unused.pop_back();
    return taken;
  }

  template <typename T>
  void shuffle(std::vector<T> &items) {
    for (std::size_t i = items.size(); i > 1; --i) std::swap(items[i - 1], items[number(i)]);
  }

  std::mt19937 random_;
  std::vector<std::string> ports_;
  std::vector<std::string> service_ports_;
  std::vector<std::string> unnumbered_service_ports_;
  std::vector<std::uint32_t> numbers_;
  std::vector<std::uint16_t> vlans_;
  std::vector<std::uint32_t> pw_ids_;
};

}  // namespace seeded

#endif
