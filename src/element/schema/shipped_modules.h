#ifndef ELEMENT_SCHEMA_SHIPPED_MODULES_H
#define ELEMENT_SCHEMA_SHIPPED_MODULES_H

#include <string_view>
#include <vector>

namespace element {

/// A YANG module that is embedded in the program.
struct ShippedModule {
  std::string_view name;
  std::string_view text;
};

/// All embedded modules, sorted by name. The program needs no search path for modules.
const std::vector<ShippedModule> &shipped_modules();

}  // namespace element

#endif
