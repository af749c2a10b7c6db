#ifndef HOST_SEAM_AGENT_PATHS_H
#define HOST_SEAM_AGENT_PATHS_H

#include <array>
#include <cstddef>
#include <vector>

#include "confd_lib.h"
#include "element/datastore/path.h"
#include "element/schema/schema.h"
#include "element/schema/value.h"

namespace host {

/// A key path as it grows and shrinks on a walk from the root down. It holds addresses only: what was pushed must
/// outlive it and what it wrote.
class KeyPath {
 public:
  KeyPath() = default;

  /// The path of a node, for as long as `path` lives.
  explicit KeyPath(const element::Path &path);

  void push(const element::SchemaNode &name);

  /// The entry of the list that was pushed last.
  void push(const element::SchemaNode &list, const std::vector<element::Value> &keys);

  void pop() { --size_; }

  /// Writes it in the seam's reverse order. Its texts belong to the nodes. Elements beyond its length have no value.
  void write(confd_hkeypath_t &path) const;

 private:
  struct Element {
    const element::SchemaNode *schema;
    const std::vector<element::Value> *keys;  ///< null: the name
  };

  void add(Element element);

  std::array<Element, MAXDEPTH> elements_;
  std::size_t size_ = 0;
};

}  // namespace host

#endif
