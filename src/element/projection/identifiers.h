#ifndef ELEMENT_PROJECTION_IDENTIFIERS_H
#define ELEMENT_PROJECTION_IDENTIFIERS_H

#include <cstdint>
#include <map>
#include <string>
#include <utility>

namespace element {

/// Numeric identifiers of one kind of thing, handed out from 1 when the thing is first met and kept from then on.
class IdentifierSpace {
 public:
  using Name = std::pair<std::string, std::string>;  ///< group and VPN; for layer-3 interfaces the name and ""

  std::uint32_t of(Name name) {
    const auto next = static_cast<std::uint32_t>(known_.size() + 1);
    return known_.try_emplace(std::move(name), next).first->second;
  }

 private:
  std::map<Name, std::uint32_t> known_;
};

/// The identifiers of all applications.
class Identifiers {
 public:
  IdentifierSpace vpls;
  IdentifierSpace vpws;
  IdentifierSpace layer3;
};

}  // namespace element

#endif
