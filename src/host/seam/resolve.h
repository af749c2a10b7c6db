#ifndef HOST_SEAM_RESOLVE_H
#define HOST_SEAM_RESOLVE_H

#include <cstdarg>
#include <cstddef>

#include "confd_lib.h"
#include "element/datastore/difference.h"
#include "element/datastore/tree.h"
#include "host/seam/formatted_path.h"
#include "host/seam/lookup_hints.h"

namespace host {

/// A path of the seam whose names have been found in the data model and whose keys are of their list's types.
class ResolvedPath {
 public:
  struct Step {
    const element::SchemaNode *schema;
    std::uint32_t first_key;
    bool has_keys;  ///< the step leads to an entry of its list, else to a list as a whole or to no list at all
  };

  /// 0; CONFD_ERR_BADPATH for what is no path, a name that the data model does not have there, a wrong module prefix or
  /// a wrong number of keys (only the last name may be a list without keys); CONFD_ERR_BADTYPE for a key that is not of
  /// its type.
  int resolve(const element::Schema &schema, const char *format, std::va_list arguments);

  /// The path as it was taken apart.
  const FormattedPath &text() const { return text_; }

  const Step *begin() const { return steps_.begin(); }
  const Step *end() const { return steps_.end(); }

  /// As many as the step's list has, where the step has keys.
  const confd_value_t *keys(const Step &step) const { return keys_.data() + step.first_key; }

  /// The last name's node; the root for a path without names.
  const element::SchemaNode &target() const { return *target_; }

  /// The path leads to a list as a whole.
  bool is_list() const;

  /// The path leads to something that has values of its own: a list entry or a container.
  bool is_object() const;

 private:
  int add_name(const FormattedPath::Part &name);
  int add_keys(const FormattedPath::Part *first, std::size_t count);

  FormattedPath text_;
  const element::SchemaNode *target_ = nullptr;
  fmt::basic_memory_buffer<Step, 24> steps_;
  fmt::basic_memory_buffer<confd_value_t, 16> keys_;
};

/// What a path leads to in a tree.
struct Place {
  const element::Node *node = nullptr;    ///< null where the tree holds none: a key leaf, what is not set, a list
                                          ///< without entries, a container that is there with its surroundings only
  const element::Value *value = nullptr;  ///< leafs and key leafs: the value, null where it is not set
  bool exists = false;                    ///< a container without presence exists where what holds it does; a list
                                          ///< where it has an entry
};

Place locate(const element::Tree &tree, const ResolvedPath &path, LookupHints &hints);

/// Index of the first entry of a list in key order that is not before these keys; fewer keys than the list has stand
/// before all that begin with them.
std::size_t first_not_before(const element::Nodes &entries, const confd_value_t *keys, std::size_t count);

/// As element::compare_keys.
int compare_keys(const confd_value_t *wanted, std::size_t count, const std::vector<element::Value> &keys);

using ChangeTrail = fmt::basic_memory_buffer<const element::Change *, 32>;

/// The changes from the root to the one at the path, the root excepted; empty where nothing at or below it changed.
/// A list entry stands after its list.
ChangeTrail locate(const element::Change &root, const ResolvedPath &path, LookupHints &hints);

}  // namespace host

#endif
