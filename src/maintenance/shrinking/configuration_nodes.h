#ifndef MAINTENANCE_SHRINKING_CONFIGURATION_NODES_H
#define MAINTENANCE_SHRINKING_CONFIGURATION_NODES_H

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "element/datastore/path.h"
#include "element/datastore/tree.h"
#include "maintenance/commits/commit.h"

namespace maintenance {

/// A node of the running configuration, the candidate or both.
struct CommitNode {
  element::Path path;
  bool is_changed = false;  ///< is in one configuration alone, or is a leaf of another value
};

/// The nodes so many steps below the root that can be taken away by themselves, in schema order: list entries, leafs
/// that need not be there, and containers. Empty where the configurations are not that deep.
std::vector<CommitNode> nodes_at(const Commit &commit, std::size_t depth);

/// The outermost nodes that the commit adds, removes or sets another value to.
std::vector<element::Path> outermost_changes(const Commit &commit);

/// How many list entries, leafs and presence containers both configurations have together.
std::size_t count_nodes(const Commit &commit);

/// Removes a node where it is there, and the containers around it that are left with nothing.
void erase_node(element::Tree &tree, const element::Path &path);

/// Makes what stands at a path the same as in another tree, where it may be missing.
void copy_node(element::Tree &to, const element::Tree &from, const element::Path &path);

/// The names of one kind, which name the same wherever they stand.
enum class NameKind { group, vpn, interface };

/// All names of a kind, each once, in the order of the configurations.
std::vector<std::string> names_of(const Commit &commit, NameKind kind);

/// The commit with another name in place of one, also in its profile.
Commit renamed(const Commit &commit, NameKind kind, std::string_view from, const std::string &to);

}  // namespace maintenance

#endif
