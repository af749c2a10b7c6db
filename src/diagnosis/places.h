#ifndef DIAGNOSIS_PLACES_H
#define DIAGNOSIS_PLACES_H

#include <cstddef>
#include <cstdint>
#include <vector>

#include "element/datastore/path.h"
#include "element/datastore/transaction.h"
#include "element/datastore/tree.h"

namespace diagnosis {

/// What a reduced commit makes of a place.
enum class Shape : std::uint8_t {
  dropped,  ///< in neither configuration
  running,  ///< in both as in the running configuration: its change is left out
  commit    ///< as in the whole commit
};

/// One for every place; a place below another that a configuration lacks is lacking there, too.
using Shapes = std::vector<Shape>;

/// An operator's list entry, container or leaf of the running or the candidate configuration. A list is no place of
/// its own.
struct Place {
  const element::SchemaNode *schema = nullptr;
  const element::Node *before = nullptr;  ///< in the running configuration
  const element::Node *after = nullptr;   ///< in the candidate configuration
  std::size_t parent = 0;                 ///< its own number for a place at the top
  std::size_t end = 0;                    ///< the first place behind all that stands below it

  bool is_entry() const { return schema->kind == element::NodeKind::list; }
  bool is_leaf() const { return schema->kind == element::NodeKind::leaf; }
  const element::Node &node() const { return after != nullptr ? *after : *before; }

  /// A container that is there as long as it holds something.
  bool is_bare() const { return schema->kind == element::NodeKind::container && !schema->presence; }

  /// What a configuration of this shape holds there, or null.
  const element::Node *running_node(Shape shape) const;
  const element::Node *candidate_node(Shape shape) const;

  bool is_there(Shape shape) const { return running_node(shape) != nullptr || candidate_node(shape) != nullptr; }
};

/// A number that places of one schema node share.
std::size_t kind_of(const Place &place);

/// Every place of a transaction's two configurations, parents before what they hold, in schema order and key order.
class Places {
 public:
  /// The transaction must outlive the places.
  explicit Places(const element::Transaction &transaction);

  std::size_t size() const { return places_.size(); }
  const Place &operator[](std::size_t number) const { return places_[number]; }

  /// The entry that the place is or stands in, or its own number where it is in none.
  std::size_t entry_of(std::size_t number) const;
  element::Path path_of(std::size_t number) const;

  /// The configurations of a reduced commit, without what the applications derive.
  element::Tree running(const Shapes &shapes) const { return build(shapes, &Place::running_node); }
  element::Tree candidate(const Shapes &shapes) const { return build(shapes, &Place::candidate_node); }

 private:
  using NodeOf = const element::Node *(Place::*)(Shape) const;
  using Nodes = element::Nodes;

  void add_children(const Nodes *before, const Nodes *after, std::size_t parent, bool at_top);
  void add(const element::Node *before, const element::Node *after, std::size_t parent, bool at_top);
  element::Tree build(const Shapes &shapes, NodeOf node_of) const;

  const element::Schema &schema_;
  std::vector<Place> places_;
};

}  // namespace diagnosis

#endif
