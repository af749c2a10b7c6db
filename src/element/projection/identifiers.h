#ifndef ELEMENT_PROJECTION_IDENTIFIERS_H
#define ELEMENT_PROJECTION_IDENTIFIERS_H

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <unordered_map>
#include <utility>

namespace element {

/// Assigns numeric identifiers to names: 1 to the first name it is asked for, then 2, and so on. A name keeps its
/// identifier.
class IdentifierSpace {
 public:
  using Name = std::pair<std::string, std::string>;  ///< group and VPN; for a layer-3 interface its name and ""

  /// The identifier of `name`; assigns the next free one to a new name.
  std::uint32_t of(Name name) {
    const auto next = static_cast<std::uint32_t>(known_.size() + 1);
    return known_.try_emplace(std::move(name), next).first->second;
  }

 private:
  struct Hash {
    std::size_t operator()(const Name &name) const {
      const std::hash<std::string> hash;
      return hash(name.first) * 31 + hash(name.second);
    }
  };

  std::unordered_map<Name, std::uint32_t, Hash> known_;
};

/// The identifiers that the element's applications assign; each application counts on its own.
class Identifiers {
 public:
  IdentifierSpace vpls;
  IdentifierSpace vpws;
  IdentifierSpace layer3;
};

}  // namespace element

#endif
