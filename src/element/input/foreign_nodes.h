#ifndef ELEMENT_INPUT_FOREIGN_NODES_H
#define ELEMENT_INPUT_FOREIGN_NODES_H

#include <map>
#include <string>
#include <string_view>

#include "element/input/passed_over.h"

namespace element {

/// Counts nodes that are passed over, by module.
class ForeignNodes {
 public:
  /// The count of a module, without nodes and line where the module is new. Valid as long as the object.
  ForeignModule &of_module(std::string_view name) {
    // Nodes of one module mostly stand together.
    if (last_ != nullptr && last_->name == name) return *last_;
    auto found = modules_.find(name);
    if (found == modules_.end()) found = modules_.emplace(name, ForeignModule{std::string(name)}).first;
    return *(last_ = &found->second);
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
  std::map<std::string, ForeignModule, std::less<>> modules_;
  ForeignModule *last_ = nullptr;
};

}  // namespace element

#endif
