#ifndef BENCH_SHAPES_H
#define BENCH_SHAPES_H

#include <cstddef>
#include <string>
#include <string_view>

#include "element/datastore/tree.h"
#include "element/profile/profile.h"

namespace bench {

/// How access interfaces spread over ports and VPNs.
enum class Shape {
  many_ports,  ///< four VPNs a port: two VPLS VPNs over sixteen ports each, two VPWS VPNs, one of them with a range
  few_ports,   ///< 4094 VLANs a port, each a VPN of its own: VPLS on the odd ones, VPWS on the even ones
  one_vpn      ///< one VPLS VPN on every port
};

std::string_view name(Shape shape);

/// A commit that every rule accepts. The running configuration holds the first nine tenths of the candidate's access
/// interfaces.
struct Commit {
  element::Profile profile;
  element::Tree running;
  element::Tree candidate;
};

/// Both trees hold what an operator writes, in order; nothing is derived yet. They share the schema, which must outlive
/// them.
Commit make_commit(const element::Schema &schema, Shape shape, std::size_t access_interfaces);

}  // namespace bench

#endif
