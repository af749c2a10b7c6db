#ifndef BENCH_PORTS_H
#define BENCH_PORTS_H

#include <cstddef>
#include <initializer_list>
#include <string>

#include "element/profile/profile.h"

namespace bench {

/// Ports count from 0; their names sort as their numbers do.
std::string port_name(std::size_t port);

/// An element with this many ports, further interfaces of these names, and a card whose limits no benchmark reaches.
element::Profile element_with(std::size_t ports, std::initializer_list<const char *> further_interfaces);

}  // namespace bench

#endif
