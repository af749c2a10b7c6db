#ifndef BENCH_POINT_COMMITS_H
#define BENCH_POINT_COMMITS_H

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "element/datastore/transaction.h"
#include "element/profile/profile.h"

namespace bench {

/// The commits whose validation is measured, each with one validation point.
enum class PointCommitKind {
  access_many_ports,  ///< size: access interfaces, in the shapes of shapes.h
  access_few_ports,
  access_one_vpn,
  peer,       ///< size: pseudowires, half of them of VPLS VPNs, half of VPWS VPNs with a backup neighbour
  membership  ///< size: static VLAN members on 64 ports that carry VPNs, in as many VLANs as that takes
};

inline constexpr PointCommitKind kPointCommitKinds[] = {
    PointCommitKind::access_many_ports, PointCommitKind::access_few_ports, PointCommitKind::access_one_vpn,
    PointCommitKind::peer, PointCommitKind::membership};

std::string_view name(PointCommitKind kind);

/// Nothing for a name that no kind has.
std::optional<PointCommitKind> kind_named(std::string_view name);

/// A commit and the point to be asked about it, which accepts it.
struct PointCommit {
  element::Profile profile;
  std::unique_ptr<element::Transaction> transaction;
  std::string point;
};

/// The running configuration holds the first nine tenths of the candidate's things. A peer commit of more than 1,024
/// pseudowires lists only that many in the pseudowire table, which nothing but the count rule reads: the rules after it
/// are what is measured.
PointCommit make_point_commit(const element::Schema &schema, PointCommitKind kind, std::size_t size);

}  // namespace bench

#endif
