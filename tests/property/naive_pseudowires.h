#ifndef TESTS_PROPERTY_NAIVE_PSEUDOWIRES_H
#define TESTS_PROPERTY_NAIVE_PSEUDOWIRES_H

#include <cstdint>
#include <map>
#include <ostream>
#include <set>
#include <string>

#include "tests/support/pseudowires.h"

/// Where a pw-id stands in the operator's configuration.
struct neighbor {
  enum kind_t { kVpws, kVpwsBackup, kVpls };

  kind_t kind = kVpws;
  std::string group;
  std::string vpn;
  std::string peer;

  bool operator==(const neighbor &other) const = default;
  bool operator<(const neighbor &other) const;

  /// The path of its pw-id.
  std::string path() const;
  scripted::Pw with(std::uint32_t pw_id) const;
};

std::ostream &operator<<(std::ostream &out, const neighbor &one);

using pw_configuration = std::map<neighbor, std::uint32_t>;

/// A commit that touches pseudowires.
struct pw_commit {
  pw_configuration running;
  pw_configuration committing;
  std::set<neighbor> rewritten;   ///< leafs that are set to the value that they have
  std::uint32_t pseudowires = 0;  ///< what the pseudowire table counts

  /// The value that the commit sets at the path, if it sets one there.
  const std::uint32_t *value_set(const neighbor &at) const;
};

std::ostream &operator<<(std::ostream &out, const pw_commit &commit);

/// The three pseudowire rules by comparing everything with everything.
namespace naive {

struct pw_verdict {
  std::string message;  ///< empty: accepted
  std::string trace;    ///< of an accepted commit

  bool operator==(const pw_verdict &) const = default;
};

std::ostream &operator<<(std::ostream &out, const pw_verdict &verdict);

pw_verdict judge(const pw_commit &commit);

}  // namespace naive

#endif
