#ifndef TESTS_DIAGNOSIS_MERGED_ENTRIES_H
#define TESTS_DIAGNOSIS_MERGED_ENTRIES_H

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <unordered_map>
#include <vector>

#include "diagnosis/finding.h"
#include "element/datastore/path.h"
#include "element/datastore/tree.h"

namespace brute_force {

/// A commit of operator's nodes, without the derived tables.
struct Configurations {
  element::Tree running;
  element::Tree candidate;
};

/// Bit i stands for entry i.
using EntrySet = std::uint32_t;

constexpr std::size_t kMostEntries = 20;

constexpr EntrySet bit(std::size_t entry) { return EntrySet{1} << entry; }
constexpr bool holds(EntrySet set, std::size_t entry) { return (set >> entry & 1U) != 0; }

/// Whether it is a list entry that stands for a thing. A dot1q-range does not: it belongs to its attachment.
bool is_thing(const element::Node &node);

/// An entry of either configuration that stands for a thing.
struct Entry {
  std::string path;
  EntrySet needs = 0;  ///< the entries around it
  const element::Node *before = nullptr;
  const element::Node *after = nullptr;
};

/// The entries of a commit, and the commit restricted to some of them.
class MergedEntries {
 public:
  /// The configurations must outlive this and hold at most kMostEntries entries together.
  explicit MergedEntries(const Configurations &commit);

  std::size_t size() const { return entries_.size(); }
  EntrySet all() const { return bit(size()) - 1; }
  const Entry &operator[](std::size_t entry) const { return entries_[entry]; }

  /// What the commit does to the entry: `changed` where a leaf or a range of its own differs.
  diagnosis::ChangeStatus status(std::size_t entry) const;

  bool is_closed(EntrySet set) const { return with_needs(set) == set; }
  EntrySet with_needs(EntrySet set) const;

  /// The members that no other member stands in.
  EntrySet innermost(EntrySet set) const;

  std::vector<std::string> paths(EntrySet set) const;

  /// An entry of the set stands in both configurations as the commit has it, any other one in neither.
  Configurations restricted_to(EntrySet set) const;

 private:
  void add_entries(const element::Node &node, const element::Path &path, EntrySet around, bool is_candidate);
  element::Tree restricted(const element::Tree &tree, EntrySet set) const;
  void copy_children(const element::Node &from, element::Node &to, EntrySet set) const;

  const Configurations &commit_;
  std::vector<Entry> entries_;
  std::unordered_map<std::string, std::size_t> by_path_;
  std::unordered_map<const element::Node *, std::size_t> by_node_;
};

/// How many entries the two configurations have together.
std::size_t count_entries(const Configurations &commit);

/// The commit with the entries whose path the predicate takes, in both configurations; what stands in one that is left
/// out is left out. Of any size.
Configurations restricted(const Configurations &commit, const std::function<bool(const std::string &path)> &keeps);

/// Leaves out what holds nothing, as reading a configuration does.
bool holds_nothing(const element::Node &node);

}  // namespace brute_force

#endif
