#ifndef ELEMENT_SCHEMA_SHIPPED_MODULES_H
#define ELEMENT_SCHEMA_SHIPPED_MODULES_H

#include <string_view>
#include <vector>

namespace element {

/// A YANG module that is part of the program.
struct ShippedModule {
  std::string_view name;
  std::string_view text;
};

/// All of them, by name. They are compiled into the program, so that it needs no search path and takes no other.
const std::vector<ShippedModule> &shipped_modules();

}  // namespace element

#endif
