#ifndef ELEMENT_SOURCE_LINES_H
#define ELEMENT_SOURCE_LINES_H

#include <cstddef>
#include <filesystem>
#include <memory>
#include <optional>

#include "element/path.h"

namespace element {

/// Where the nodes of a configuration stand in its file, for configurations that read_configuration has accepted.
class SourceLines {
 public:
  /// Reads the file, XML or JSON. Throws InputError where it cannot be read any more.
  explicit SourceLines(const std::filesystem::path &file);
  ~SourceLines();
  SourceLines(const SourceLines &) = delete;
  SourceLines &operator=(const SourceLines &) = delete;

  /// The line, from 1, on which the node begins: an element's start tag; in JSON the name of a leaf, container or list,
  /// and the brace of a list entry. Nothing where the file does not hold the node.
  std::optional<std::size_t> line_of(const Path &path) const;

 private:
  struct Document;
  std::unique_ptr<const Document> document_;
};

}  // namespace element

#endif
