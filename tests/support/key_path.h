#ifndef TESTS_SUPPORT_KEY_PATH_H
#define TESTS_SUPPORT_KEY_PATH_H

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "confd_lib.h"
#include "tests/support/value.h"

namespace scripted {

/// The data model's tag of a node's name: four are fixed, the others a hash.
std::uint32_t tag_of(std::string_view name);

/// The name that a tag was made from, or the tag in hexadecimal.
std::string name_of(std::uint32_t tag);

/// A key path as a callback gets it. It owns what the platform's form of it points to.
class KeyPath {
 public:
  /// The elements, last one first: a name is one tag, an entry its keys.
  explicit KeyPath(std::vector<Values> elements);
  KeyPath(const KeyPath &) = delete;
  KeyPath &operator=(const KeyPath &) = delete;

  confd_hkeypath_t *get() { return &path_; }

 private:
  std::vector<Values> elements_;
  confd_hkeypath_t path_{};
};

}  // namespace scripted

#endif
