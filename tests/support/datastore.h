#ifndef TESTS_SUPPORT_DATASTORE_H
#define TESTS_SUPPORT_DATASTORE_H

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/path.h"
#include "tests/support/value.h"

namespace scripted {

/// How many keys each list has, learnt from what tests declare, by the node's path without keys.
class KeyCounts {
 public:
  /// Throws PathError where another number was learnt before.
  void learn(const Path &list, std::size_t keys);
  void learn_ancestors(const Path &path);

  /// 0 when the list is not known.
  std::size_t of(const Path &list) const;

  /// Whether every list on the way stands without keys or with as many as it has.
  bool fit(const Path &path) const;

 private:
  std::map<std::string, std::size_t> counts_;
};

/// A list's entries in key order. A row holds the keys, then the other values of an object read.
struct List {
  std::size_t key_count = 0;
  std::vector<Values> rows;

  Values keys(std::size_t row) const;
};

/// What one configuration holds, by path. Names may carry module prefixes. Nothing is derived from anything else,
/// save that a node exists when something was declared below it.
class Datastore {
 public:
  explicit Datastore(KeyCounts &counts) : counts_(counts) {}

  /// Declares a list, with any rows; replaces the one of before.
  void list(std::string_view path, std::size_t key_count, std::vector<Values> rows = {});

  /// Adds one entry. key_count 0: as many as the list is known to have, else every value is a key.
  void entry(std::string_view list_path, Values values, std::size_t key_count = 0);

  /// Sets a leaf, without a value a leaf of type empty.
  void leaf(std::string_view path);
  void leaf(std::string_view path, Value value);

  /// What an object read of a container, or of an entry of no declared list, yields.
  void object(std::string_view path, Values values);

  const List *find_list(const Path &path) const;
  const Value *find_leaf(const Path &path) const;
  const Values *find_object(const Path &path) const;
  bool exists(const Path &path) const;

  /// The row of the entry that the path ends in, or null.
  const Values *find_entry(const Path &path) const;

 private:
  bool has_something_below(const std::string &path_text) const;

  KeyCounts &counts_;
  std::map<std::string, List> lists_;
  std::map<std::string, Value> leafs_;
  std::map<std::string, Values> objects_;
};

}  // namespace scripted

#endif
