#ifndef ELEMENT_INPUT_CONFIGURATION_SOURCE_H
#define ELEMENT_INPUT_CONFIGURATION_SOURCE_H

#include <filesystem>
#include <vector>

#include "element/input/configuration_format.h"
#include "element/input/passed_over.h"
#include "element/input/source_lines.h"

namespace element {

/// The lines of the nodes that one file names.
struct FileLines {
  std::filesystem::path file;
  SourceLines lines;
};

/// What is known of the file that a configuration was read from, beside its tree.
struct ConfigurationSource {
  InputFormat format = InputFormat::xml;
  SourceLines lines;
  PassedOver passed_over;
  /// Where the nodes of a configuration stand that its own file does not name, because that is an edit: the edits
  /// before it, the last one first, and the configuration that they were applied to.
  std::vector<FileLines> further{};
};

}  // namespace element

#endif
