#ifndef ELEMENT_INPUT_PASSED_OVER_H
#define ELEMENT_INPUT_PASSED_OVER_H

#include <cstddef>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace element {

/// Nodes of a module that is not the element's.
struct ForeignModule {
  std::string name;       ///< the module's namespace in XML, its name in JSON
  std::size_t nodes = 0;  ///< containers, leafs, and entries of lists and leaf-lists
  std::size_t line = 0;   ///< of the first one in the file
  std::string file{};     ///< as it was named
};

/// What a configuration holds beside the element's own nodes, and was not read.
struct PassedOver {
  std::vector<ForeignModule> modules;  ///< of each file sorted by name

  std::size_t nodes() const {
    std::size_t count = 0;
    for (const ForeignModule &module : modules) count += module.nodes;
    return count;
  }

  /// How many modules there are, of all files together.
  std::size_t count_modules() const {
    std::set<std::string_view> names;
    for (const ForeignModule &module : modules) names.insert(module.name);
    return names.size();
  }
};

}  // namespace element

#endif
