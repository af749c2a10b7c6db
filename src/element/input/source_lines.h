#ifndef ELEMENT_INPUT_SOURCE_LINES_H
#define ELEMENT_INPUT_SOURCE_LINES_H

#include <cstddef>
#include <filesystem>
#include <memory>
#include <optional>

#include "element/datastore/path.h"

namespace element {

class SourceTree;

/// Where the nodes of a configuration stand in its file, for configurations that read_configuration has accepted:
/// libyang does not keep the lines of what it has read.
class SourceLines {
 public:
  /// Reads the file, XML or JSON, once more; time and memory grow with it. A pipe or a file that is gone is not read:
  /// nothing in it has a line. Throws InputError where the file holds no configuration any more.
  explicit SourceLines(const std::filesystem::path &file);
  ~SourceLines();
  SourceLines(const SourceLines &) = delete;
  SourceLines &operator=(const SourceLines &) = delete;

  /// The line, from 1, on which the node begins: an element's start tag; in JSON the name of a leaf, container or list,
  /// and the brace of a list entry. A list without keys begins with its first entry, in JSON with its name. Nothing
  /// where the file does not hold the node, as it never holds a derived one. Time grows with the length of the lists
  /// on the way.
  std::optional<std::size_t> line_of(const Path &path) const;

 private:
  std::unique_ptr<const SourceTree> tree_;
};

}  // namespace element

#endif
