#ifndef DIAGNOSIS_MERGED_TREE_H
#define DIAGNOSIS_MERGED_TREE_H

#include <cstddef>
#include <cstdint>
#include <limits>
#include <vector>

#include "element/datastore/path.h"
#include "element/datastore/transaction.h"
#include "element/datastore/tree.h"

namespace diagnosis {

inline constexpr std::uint32_t kNone = std::numeric_limits<std::uint32_t>::max();

/// A node as a child of its parent, from where other trees can share it.
struct SharedChild {
  const element::Nodes *siblings = nullptr;
  std::size_t index = 0;
};

/// An operator's list entry, container or leaf of the running or the candidate configuration. A list is no node of its
/// own.
struct MergedNode {
  const element::SchemaNode *schema = nullptr;
  const element::Node *before = nullptr;  ///< in the running configuration
  const element::Node *after = nullptr;   ///< in the candidate configuration
  SharedChild before_place;               ///< where `before` stands among its siblings
  SharedChild after_place;
  std::uint32_t parent = kNone;       ///< kNone at the top
  std::uint32_t end = 0;              ///< the first node behind all that stands below it
  std::uint32_t list_end = 0;         ///< entries: the first node behind the entry's list
  std::uint32_t things = 0;           ///< how many things it is and holds
  std::uint32_t first_thing = kNone;  ///< the number of the first of them among the entries
  std::uint32_t entry = kNone;        ///< the thing that it is or belongs to, by its number among the entries

  bool is_entry() const { return schema->kind == element::NodeKind::list; }
  bool is_leaf() const { return schema->kind == element::NodeKind::leaf; }
  const element::Node &node() const { return after != nullptr ? *after : *before; }

  /// An entry that stands for a thing of the network. A VLAN range is none: it tells what an attachment takes.
  bool is_thing() const;

  /// A container that is there as long as it holds something.
  bool is_bare() const { return schema->kind == element::NodeKind::container && !schema->presence; }

  bool is_changed() const;  ///< itself, without regard to what stands below it
};

/// Every node of a transaction's two configurations, parents before what they hold, in schema order and key order.
class MergedTree {
 public:
  explicit MergedTree(const element::Transaction &transaction);
  MergedTree(const MergedTree &) = delete;
  MergedTree &operator=(const MergedTree &) = delete;

  /// The two configurations, operator's nodes alone; what is the same in both is shared.
  const element::Tree &running() const { return running_; }
  const element::Tree &candidate() const { return candidate_; }

  std::uint32_t size() const { return static_cast<std::uint32_t>(nodes_.size()); }
  const MergedNode &operator[](std::uint32_t number) const { return nodes_[number]; }
  MergedNode &operator[](std::uint32_t number) { return nodes_[number]; }
  const element::Schema &schema() const { return running_.schema(); }

  element::Path path_of(std::uint32_t number) const;

 private:
  void add_children(const element::Nodes &before, const element::Nodes &after, std::uint32_t parent);
  void add(const SharedChild &before, const SharedChild &after, std::uint32_t parent);

  element::Tree running_;
  element::Tree candidate_;
  std::vector<MergedNode> nodes_;
};

}  // namespace diagnosis

#endif
