#ifndef ELEMENT_INPUT_SOURCE_LINES_H
#define ELEMENT_INPUT_SOURCE_LINES_H

#include <cstddef>
#include <memory>
#include <optional>
#include <vector>

#include "element/datastore/path.h"

namespace element {

class SourceTree;

/// The line on which each node of a configuration begins. Copies share what they know.
class SourceLines {
 public:
  /// Knows no line.
  SourceLines();
  explicit SourceLines(SourceTree tree);

  /// The line, from 1, on which the node begins: an element's start tag; in JSON the name of a leaf, container or list,
  /// and the brace of a list entry. A list without keys begins with its first entry, in JSON with its name. Nothing
  /// if the file does not hold the node; it never holds a derived one. Time is linear in the length of the lists along
  /// the path.
  std::optional<std::size_t> line_of(const Path &path) const;

  /// The lines of all nodes with this path, in the order of the file. A file that holds more than one is not valid.
  std::vector<std::size_t> lines_of(const Path &path) const;

  const SourceTree &tree() const { return *tree_; }

 private:
  std::shared_ptr<const SourceTree> tree_;
};

}  // namespace element

#endif
