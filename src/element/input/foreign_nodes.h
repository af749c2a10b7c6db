#ifndef ELEMENT_INPUT_FOREIGN_NODES_H
#define ELEMENT_INPUT_FOREIGN_NODES_H

#include <map>
#include <string>
#include <string_view>

#include "element/input/configuration_format.h"
#include "element/input/passed_over.h"

namespace element {

/// Counts nodes that are passed over, by module.
class ForeignNodes {
 public:
  /// Counts a node of a module. `line_of` gives its line, and is asked for the module's first one alone.
  template <typename LineOf>
  void count(std::string_view name, LineOf line_of) {
    ForeignModule &module = of_module(name);
    if (module.nodes++ == 0) module.line = line_of();
  }

  /// The counts of a file that is named so.
  PassedOver result(const std::string &file) const {
    PassedOver passed_over;
    for (const auto &[name, module] : modules_) {
      passed_over.modules.push_back(module);
      passed_over.modules.back().file = file;
    }
    return passed_over;
  }

 private:
  ForeignModule &of_module(std::string_view name) {
    // Nodes of one module mostly stand together.
    if (last_ != nullptr && last_->name == name) return *last_;
    auto found = modules_.find(name);
    if (found == modules_.end()) found = modules_.emplace(name, ForeignModule{std::string(name)}).first;
    return *(last_ = &found->second);
  }

  std::map<std::string, ForeignModule, std::less<>> modules_;
  ForeignModule *last_ = nullptr;
};

/// What is said of a foreign node where these are refused, and what was expected. `module` is its namespace in XML.
std::string foreign_fault(std::string_view name, std::string_view module, InputFormat format);
inline constexpr const char *kOwnNodesAlone = "nodes of the element's own modules alone";

}  // namespace element

#endif
