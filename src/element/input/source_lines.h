#ifndef ELEMENT_INPUT_SOURCE_LINES_H
#define ELEMENT_INPUT_SOURCE_LINES_H

#include <cstddef>
#include <memory>
#include <optional>

#include "element/datastore/path.h"
#include "element/input/configuration_text.h"

namespace element {

class SourceTree;

/// The line on which each node of a configuration begins. libyang does not keep the lines of what it parses, so the
/// text is parsed a second time.
class SourceLines {
 public:
  /// Parses the text, which read_configuration_with_text has accepted and which need not outlive the call. Time and
  /// memory grow with the text. Lines of a text that is not well-formed have no meaning.
  explicit SourceLines(const ConfigurationText &configuration);
  ~SourceLines();
  SourceLines(const SourceLines &) = delete;
  SourceLines &operator=(const SourceLines &) = delete;

  /// The line, from 1, on which the node begins: an element's start tag; in JSON the name of a leaf, container or list,
  /// and the brace of a list entry. A list without keys begins with its first entry, in JSON with its name. Nothing
  /// if the text does not contain the node; it never contains a derived one. Time is linear in the length of the lists
  /// along the path.
  std::optional<std::size_t> line_of(const Path &path) const;

 private:
  std::unique_ptr<const SourceTree> tree_;
};

}  // namespace element

#endif
